// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the pictures of the windows for the documents: searches the site of a URL in the real windows, off screen, and
// saves their pictures in a folder.
#include "app/MainWindow.h"
#include "session/Session.h"
#include "session/Settings.h"
#include "support/TestSeams.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>

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

class Photographer : AnsweredSeams {
public:
    Photographer(const QByteArray& site, const QString& folder)
        : m_site(site)
        , m_folder(QDir(folder).absolutePath())
        , m_loaded(settings::loadSettings(m_session, {}))
        , m_window(m_session, seams(m_session.language))
    {
        m_session.requestPrefs.useLanguage = true;
        m_session.requestPrefs.sprachAuswahl = { "de German", "en English", "fr French" };
        m_window.begin(m_loaded);
        m_window.resize(1000, 640);
    }

    bool takeAll()
    {
        if (!search() || !download())
            return false;
        for (const auto& [index, language] :
            { std::pair(1, "german"), std::pair(2, "french"), std::pair(0, "english") }) {
            choose(QStringLiteral("m_lang(%1)").arg(index));
            const QString ending = u'-' + QString::fromLatin1(language);
            shoot(m_window, QLatin1String("main") + ending);
            shoot(*m_window.findChild<QWidget*>(QStringLiteral("fr_filter")), QLatin1String("filter") + ending);
            choose(QStringLiteral("m_searchNew"));
            shoot(dialog(), QLatin1String("new-search") + ending);
            dialog().close();
            shoot(downloads(), QLatin1String("downloads") + ending);
            choose(QStringLiteral("m_requests"));
            shoot(requests(), QLatin1String("requests") + ending);
            requests().close();
            choose(QStringLiteral("m_addNumberedDL"));
            shoot(numbered(), QLatin1String("numbered") + ending);
            numbered().close();
        }
        choose(QStringLiteral("m_listMode(0)"));
        shoot(m_window, QStringLiteral("icons"));
        choose(QStringLiteral("m_listMode(3)"));
        QApplication::setPalette(darkPalette());
        shoot(m_window, QStringLiteral("main-dark"));
        return m_saved;
    }

private:
    void choose(const QString& entry) { m_window.findChild<QAction*>(entry)->trigger(); }
    QDialog& dialog() { return *m_window.findChild<QDialog*>(QStringLiteral("dialog_getSearch")); }
    QDialog& requests() { return *m_window.findChild<QDialog*>(QStringLiteral("dialog_requests")); }
    QDialog& numbered() { return *m_window.findChild<QDialog*>(QStringLiteral("getDLStack")); }
    static QWidget& downloads()
    {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("DLManager"))
                return *window;
        }
        qFatal("There is no download manager.");
    }

    /// Downloads all items, and one URL that fails.
    bool download()
    {
        DownloadQueue& queue = m_session.downloads;
        // A relative target keeps the names in the pictures short.
        QDir::setCurrent(m_target.path());
        queue.settings().target = QStringLiteral("Downloads/");
        queue.settings().naming.dirByUrl = true;
        QSignalSpy idle(&queue, &DownloadQueue::idle);
        choose(QStringLiteral("m_selectAll"));
        choose(QStringLiteral("m_selectedDownload"));
        choose(QStringLiteral("m_selectedInvert")); // The pictures show rows without the colour of the selection.
        choose(QStringLiteral("m_addNumberedDL"));
        queue.addDL("https://www.example.org/catalogue.pdf", -1, {});
        numbered()
            .findChild<QLineEdit*>(QStringLiteral("startUrl"))
            ->setText(QStringLiteral("http://www.example.org/pictures/boat.jpg"));
        numbered().findChild<QDoubleSpinBox*>(QStringLiteral("Pos"))->setValue(36);
        numbered().findChild<QDoubleSpinBox*>(QStringLiteral("minStellen"))->setValue(3);
        numbered().close();
        choose(QStringLiteral("m_showDlm"));
        downloads().resize(900, 380);
        return idle.count() > 0 || idle.wait(20'000);
    }

    bool search()
    {
        choose(QStringLiteral("m_searchNew"));
        dialog().findChild<QLineEdit*>(QStringLiteral("startlink"))->setText(QString::fromLatin1(m_site));
        for (const char* const button : { "rad_followSub(1)", "b_copyStartUrl", "b_addToSubUrlList" })
            dialog().findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
        QSignalSpy finished(&m_session.search, &SearchRun::finished);
        dialog().findChild<QAbstractButton*>(QStringLiteral("b_ok"))->click();
        return finished.count() > 0 || finished.wait(20'000);
    }

    void shoot(QWidget& widget, const QString& name)
    {
        QTest::qWait(300); // time for the window to draw itself
        m_saved = widget.grab().save(QDir(m_folder).filePath(name + QLatin1String(".png"))) && m_saved;
    }

    QByteArray m_site;
    QString m_folder;
    Session m_session;
    settings::LoadResult m_loaded;
    MainWindow m_window;
    QTemporaryDir m_target;
    bool m_saved = true;
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc != 3)
        return 2;
    const QTemporaryDir data; // with no settings in it
    qputenv("TARNWICK_DATA", data.path().toLocal8Bit());
    Photographer photographer(argv[1], QString::fromLocal8Bit(argv[2]));
    return photographer.takeAll() ? 0 : 1;
}
