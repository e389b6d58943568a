// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the pictures of the windows that the documents show: searches the site of a URL in the real windows, off
// screen, and saves what they look like in a folder.
#include "app/MainWindow.h"
#include "app/Session.h"
#include "support/TestSeams.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTest>
#include <QTreeView>

namespace {

QPalette darkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(37, 37, 38));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(58, 58, 60));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 48));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::PlaceholderText, QColor(150, 150, 150));
    dark.setColor(QPalette::Button, QColor(60, 60, 64));
    dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
    dark.setColor(QPalette::ToolTipText, QColor(230, 230, 230));
    dark.setColor(QPalette::Highlight, QColor(47, 127, 158));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        dark.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
    return dark;
}

class Photographer {
public:
    Photographer(const QByteArray& site, const QString& folder)
        : m_site(site)
        , m_folder(folder)
        , m_window(m_session, { m_messages, m_dialogs, m_shell, m_picker })
    {
        m_session.cookies.setCookieFolder(QDir::temp().filePath(QStringLiteral("tarnwick-screenshots")));
        m_window.resize(1000, 640);
        m_window.show();
    }

    bool takeAll()
    {
        shoot(m_window, "empty");
        if (!search())
            return false;
        shoot(m_window, "main-english");
        choose("m_listMode(0)");
        shoot(m_window, "icons");
        choose("m_listMode(2)");
        shoot(m_window, "list");
        choose("m_listMode(3)");
        choose("m_lang(1)");
        shoot(m_window, "main-german");
        shoot(*m_window.findChild<QWidget*>(QStringLiteral("fr_filter")), "filter-german");
        choose("m_lang(2)");
        shoot(m_window, "main-french");
        choose("m_lang(0)");
        QApplication::setPalette(darkPalette());
        shoot(m_window, "main-dark");
        QApplication::setPalette(QPalette());
        return m_saved;
    }

private:
    template <typename T> T* control(const QString& name, QWidget& window) { return window.findChild<T*>(name); }
    void choose(const char* entry) { m_window.findChild<QAction*>(QString::fromLatin1(entry))->trigger(); }

    bool search()
    {
        choose("m_searchNew");
        auto* const dialog = m_window.findChild<QDialog*>(QStringLiteral("dialog_getSearch"));
        dialog->findChild<QLineEdit*>(QStringLiteral("startlink"))->setText(QString::fromLatin1(m_site));
        auto* const inside = dialog->findChild<QRadioButton*>(QStringLiteral("rad_followSub(1)"));
        inside->click();
        dialog->findChild<QAbstractButton*>(QStringLiteral("b_copyStartUrl"))->click();
        dialog->findChild<QAbstractButton*>(QStringLiteral("b_addToSubUrlList"))->click();
        shoot(*dialog, "new-search");
        QSignalSpy finished(&m_session.search, &SearchRun::finished);
        dialog->findChild<QAbstractButton*>(QStringLiteral("b_ok"))->click();
        return finished.count() > 0 || finished.wait(20'000);
    }

    void shoot(QWidget& widget, const char* name)
    {
        QTest::qWait(300); // the time that a person would give the window to draw itself
        const QString file = QDir(m_folder).filePath(QString::fromLatin1(name) + QLatin1String(".png"));
        m_saved = widget.grab().save(file) && m_saved;
    }

    QByteArray m_site;
    QString m_folder;
    Session m_session;
    AnsweredMessages m_messages;
    AnsweredFileDialogs m_dialogs;
    RecordingShell m_shell;
    AnsweredPicker m_picker;
    MainWindow m_window;
    bool m_saved = true;
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Tarnwick"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc != 3)
        return 2;
    Photographer photographer(argv[1], QString::fromLocal8Bit(argv[2]));
    return photographer.takeAll() ? 0 : 1;
}
