// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"
#include "app/dialog_getUrl.h"
#include "base/lang.h"
#include "crawl/SearchOptions.h"
#include "crawl/window/dialog_getSearch.h"
#include "downloads/DownloadQueue.h"
#include "downloads/window/getDLStack.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"
#include "support/TestSeams.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Picks URLs with the user's own browser, as where the program has none of its own.
class tst_UserBrowser : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_elsewhere.show(); }
    void init();
    void cleanup();
    void givesTheCopiedUrlToItsCaller_data();
    void givesTheCopiedUrlToItsCaller();
    void changesNothingOtherwise_data();
    void changesNothingOtherwise();
    void takesOnlyWhatIsCopiedMeanwhile();
    void leavesAloneWhatIsBeingTyped();
    void looksAgainWhenActive();
    void tellsOfAPageThatCannotBeOpened();

private:
    /// Has the window of `caller` open the picker on "example.org/start", which stands in its field.
    void pickFor(const QByteArray& caller);
    static void copy(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }
    void goElsewhere() { activate(m_elsewhere); }
    static void comeBack() { activate(dialog()); }
    static void activate(QWidget& window);
    [[nodiscard]] static QWidget& dialog();
    [[nodiscard]] static QLineEdit& link() { return control<QLineEdit>(dialog(), "link"); }
    [[nodiscard]] QByteArray field() const { return m_field->text().toUtf8(); }

    QTemporaryDir m_noLibrary;
    QWidget m_elsewhere; ///< stands for the user's browser
    LanguageTable m_language;
    AnsweredMessages m_messages;
    AnsweredFileDialogs m_dialogs;
    RecordingShell m_shell;
    FilledRegistry m_registry;
    SearchOptions m_options;
    PlainExtras m_extras;
    WebRules m_web;
    Connections m_connections { m_web };
    DownloadQueue m_queue { m_extras, m_connections };
    std::unique_ptr<BrowserPicker> m_picker;
    std::unique_ptr<QWidget> m_caller;
    QLineEdit* m_field = nullptr; ///< of the caller
};

void tst_UserBrowser::init()
{
    copy("http://copied/before");
    m_messages = {};
    m_shell = {};
    m_picker = std::make_unique<BrowserPicker>(m_language, m_messages, m_shell, QStringList { m_noLibrary.path() });
}

void tst_UserBrowser::cleanup()
{
    m_caller.reset();
    m_picker.reset();
}

QWidget& tst_UserBrowser::dialog()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("dialog_getURL"))
            return *window;
    }
    qFatal("There is no picker.");
}

void tst_UserBrowser::activate(QWidget& window)
{
    window.activateWindow();
    QTRY_VERIFY(window.isActiveWindow());
}

void tst_UserBrowser::pickFor(const QByteArray& caller)
{
    const Seams seams { m_language, m_messages, m_dialogs, m_shell, *m_picker, m_registry };
    const bool isSearch = caller != "numbered";
    if (isSearch)
        m_caller = std::make_unique<dialog_getSearch>(m_options, seams, nullptr);
    else
        m_caller = std::make_unique<getDLStack>(m_queue, seams, nullptr);
    m_caller->show();
    m_field = &control<QLineEdit>(*m_caller, isSearch ? "startlink" : "startUrl");
    m_field->setText(QStringLiteral("example.org/start"));
    click(*m_caller, isSearch ? "editLink" : "editUrl");
    QTRY_VERIFY(dialog().isActiveWindow());
}

void tst_UserBrowser::givesTheCopiedUrlToItsCaller_data()
{
    QTest::addColumn<QByteArray>("caller");
    for (const char* caller : { "new search", "numbered" })
        QTest::newRow(caller) << QByteArray(caller);
}

void tst_UserBrowser::givesTheCopiedUrlToItsCaller()
{
    QFETCH(QByteArray, caller);
    pickFor(caller);
    QCOMPARE(m_shell.openedUrls, QList { QUrl(QStringLiteral("http://example.org/start")) });
    QVERIFY(control<QLabel>(dialog(), "instructions").isVisible());
    goElsewhere();
    copy("words about http://h/");
    QCOMPARE(link().text(), QStringLiteral("example.org/start"));
    copy("\n https://example.org/found?a=1 \r\n");
    QCOMPARE(link().text(), QStringLiteral("https://example.org/found?a=1"));
    comeBack();
    QTest::keyClick(&link(), Qt::Key_V, Qt::ControlModifier);
    click(dialog(), "b_ok");
    QVERIFY(!dialog().isVisible());
    QCOMPARE(field().trimmed(), "https://example.org/found?a=1");
    QVERIFY(m_messages.told.isEmpty());
}

void tst_UserBrowser::changesNothingOtherwise_data()
{
    QTest::addColumn<QByteArray>("caller");
    QTest::addColumn<QByteArray>("end");
    for (const char* caller : { "new search", "numbered" }) {
        for (const char* end : { "b_Abort", "Escape", "closed" })
            QTest::addRow("%s, %s", caller, end) << QByteArray(caller) << QByteArray(end);
    }
}

void tst_UserBrowser::changesNothingOtherwise()
{
    QFETCH(QByteArray, caller);
    QFETCH(QByteArray, end);
    pickFor(caller);
    goElsewhere();
    copy("http://found/");
    comeBack();
    if (end == "closed")
        dialog().close();
    else if (end == "Escape")
        QTest::keyClick(&link(), Qt::Key_Escape);
    else
        click(dialog(), end.constData());
    QVERIFY(!dialog().isVisible());
    QCOMPARE(field(), "example.org/start");
}

void tst_UserBrowser::takesOnlyWhatIsCopiedMeanwhile()
{
    pickFor("new search");
    goElsewhere();
    comeBack();
    QCOMPARE(link().text(), QStringLiteral("example.org/start"));
    goElsewhere();
    copy("http://copied/before"); // once more, now for the picker
    QCOMPARE(link().text(), QStringLiteral("http://copied/before"));
    comeBack();
    click(dialog(), "b_Abort");
    copy("http://copied/between");
    QCOMPARE(link().text(), QStringLiteral("http://copied/before"));
    pickFor("new search");
    QCOMPARE(link().text(), QStringLiteral("example.org/start"));
}

void tst_UserBrowser::leavesAloneWhatIsBeingTyped()
{
    pickFor("new search");
    link().selectAll();
    QTest::keyClicks(&link(), QStringLiteral("half.exam"));
    copy("http://copied/unasked");
    QCOMPARE(link().text(), QStringLiteral("half.exam"));
    goElsewhere();
    comeBack();
    QCOMPARE(link().text(), QStringLiteral("half.exam"));
    goElsewhere();
    copy("http://copied/");
    QCOMPARE(link().text(), QStringLiteral("http://copied/"));
    comeBack();
    QTest::keySequence(&link(), QKeySequence::Undo);
    QCOMPARE(link().text(), QStringLiteral("half.exam"));
}

void tst_UserBrowser::looksAgainWhenActive()
{
    pickFor("new search");
    goElsewhere();
    {
        const QSignalBlocker untold(QGuiApplication::clipboard());
        copy("http://copied/");
    }
    QCOMPARE(link().text(), QStringLiteral("example.org/start"));
    comeBack();
    QCOMPARE(link().text(), QStringLiteral("http://copied/"));
    link().setCursorPosition(7);
    QTest::keyClicks(&link(), QStringLiteral("not-"));
    goElsewhere();
    comeBack();
    QCOMPARE(link().text(), QStringLiteral("http://not-copied/"));
}

void tst_UserBrowser::tellsOfAPageThatCannotBeOpened()
{
    m_shell.opens = false;
    pickFor("new search");
    QVERIFY(m_messages.told.value(0).text.startsWith(m_language.text("more.pageNotOpened")));
    QVERIFY(m_messages.toldText().endsWith("http://example.org/start"));
    goElsewhere();
    copy("http://copied/");
    QCOMPARE(link().text(), QStringLiteral("http://copied/"));
    comeBack();

    m_shell = {};
    link().setText(QStringLiteral("typed/?q= x"));
    click(dialog(), "b_go");
    QCOMPARE(m_shell.openedUrls, QList { QUrl(QStringLiteral("http://typed/?q= x")) });
    for (const char* refused : { "file:///etc/passwd", "x-program://do/it", "http://h:port/" }) {
        link().setText(QString::fromLatin1(refused));
        QTest::keyClick(&link(), Qt::Key_Return);
        QVERIFY(m_messages.told.takeLast().text.endsWith(QLatin1String(refused)));
    }
    QCOMPARE(m_shell.openedUrls.size(), 1);
    QVERIFY(dialog().isVisible());
}

QTEST_MAIN(tst_UserBrowser)

#include "tst_UserBrowser.moc"
