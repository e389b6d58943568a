// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"
#include "app/dialog_getUrl.h"
#include "base/lang.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

/// Browses real pages with the real browser.
class tst_BrowserPicker : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void typesAndGoes();
    void followsLinks();
    void cancelTakesNothing();
    void keepsToItself();
    void isOffWithoutItsLibrary();
    void tellsOfALibraryThatIsNone();
    void everyCaptionHasItsKey();

private:
    void pick(const QByteArray& url);
    [[nodiscard]] static QWidget& dialog();
    [[nodiscard]] static QString link() { return control<QLineEdit>(dialog(), "link").text(); }
    [[nodiscard]] QString url(const char* path) const { return QString::fromLatin1(m_server->origin() + path); }

    QTemporaryDir m_home;
    LanguageTable m_language;
    AnsweredMessages m_messages;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<BrowserPicker> m_picker;
    QList<QByteArray> m_picked;
};

void tst_BrowserPicker::initTestCase()
{
    for (const char* folder : { "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME" })
        qputenv(folder, m_home.path().toLocal8Bit());
    m_picker = std::make_unique<BrowserPicker>(
        m_language, m_messages, QStringList { QStringLiteral(TARNWICK_BROWSER_FOLDER) });
    QVERIFY(!m_picker->obstacle());
}

void tst_BrowserPicker::init()
{
    m_server = std::make_unique<ScriptedServer>();
    m_server->page("/", "<title>start</title>start");
    m_picked.clear();
}

void tst_BrowserPicker::cleanup()
{
    dialog().close();
}

QWidget& tst_BrowserPicker::dialog()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("dialog_getURL"))
            return *window;
    }
    qFatal("There is no picker.");
}

void tst_BrowserPicker::pick(const QByteArray& url)
{
    m_picker->pickUrl(url, [this](const QByteArray& picked) { m_picked += picked; });
    QVERIFY(dialog().isVisible());
}

void tst_BrowserPicker::typesAndGoes()
{
    m_server->page("/typed", "typed");
    pick(m_server->origin());
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/"), 30'000);
    control<QLineEdit>(dialog(), "link").setText(url("/typed").mid(7)); // without http://
    QVERIFY(!m_server->paths().contains("/typed"));
    click(dialog(), "b_go");
    QTRY_COMPARE(link(), url("/typed"));
    click(dialog(), "b_ok");
    QVERIFY(!dialog().isVisible());
    QCOMPARE(m_picked, QList<QByteArray> { m_server->origin() + "/typed" });
    pick("");
    control<QLineEdit>(dialog(), "link").setText(QStringLiteral(" not visited "));
    click(dialog(), "b_ok");
    QCOMPARE(m_picked.value(1), "not visited");
}

void tst_BrowserPicker::followsLinks()
{
    m_server->page(
        "/", "<script>onload = () => setTimeout(() => document.links[0].click())</script><a href='next'>x</a>");
    m_server->relocation("/next", "/there");
    m_server->page("/there", "<script>onload = () => { location.hash = 'place' }</script>there");
    pick(m_server->origin());
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/there#place"), 30'000);
    click(dialog(), "b_ok");
    QCOMPARE(m_picked, QList<QByteArray> { m_server->origin() + "/there#place" });
}

void tst_BrowserPicker::cancelTakesNothing()
{
    pick(m_server->origin());
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/"), 30'000);
    click(dialog(), "b_Abort");
    QVERIFY(!dialog().isVisible());
    pick(m_server->origin());
    dialog().close();
    QVERIFY(m_picked.isEmpty());
}

void tst_BrowserPicker::keepsToItself()
{
    m_server->script("/file", { { okHeader("application/octet-stream") + "x" } });
    m_server->page("/end", "end");
    m_server->page("/popup", "<script>location = '/end'</script>");
    m_server->script("/",
        { { "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nSet-Cookie: a=1; path=/; max-age=9999999\r\n\r\n"
            "<script>onload = () => {"
            "alert('x'); confirm('x'); prompt('x'); localStorage.x = 1; location = 'mailto:x@example.org';"
            "setTimeout(() => { open('/popup?unasked'); location = '/file' }, 100)"
            "}</script><a target=_blank href='/popup' style='position: fixed; inset: 0'>x</a>" } });
    const qsizetype windows = QApplication::topLevelWidgets().size();
    pick(m_server->origin());
    QTRY_VERIFY_WITH_TIMEOUT(m_server->paths().contains("/file"), 30'000);
    QWidget& page = *control<QWidget>(dialog(), "IE").focusProxy();
    QTRY_VERIFY((QTest::mouseClick(&page, Qt::LeftButton), link() == url("/end")));
    QVERIFY(!m_server->paths().contains("/popup?unasked"));
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QVERIFY(m_messages.told.isEmpty());
    for (const auto place :
        { QStandardPaths::DownloadLocation, QStandardPaths::AppDataLocation, QStandardPaths::CacheLocation })
        QVERIFY(!QDir(QStandardPaths::writableLocation(place)).exists(QStringLiteral("QtWebEngine")));
}

void tst_BrowserPicker::isOffWithoutItsLibrary()
{
    QCOMPARE(BrowserPicker(m_language, m_messages, { m_home.path() }).obstacle(), "more.noPicker");
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
#ifdef Q_OS_UNIX
    QCOMPARE(m_picker->obstacle() == nullptr, geteuid() != 0);
#endif
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

void tst_BrowserPicker::tellsOfALibraryThatIsNone()
{
    QVERIFY(writeFile(m_home.filePath(QStringLiteral("tarnwick_browser.so")), "nothing"));
    BrowserPicker picker(m_language, m_messages, { m_home.path() });
    picker.pickUrl("http://h/", [this](const QByteArray& url) { m_picked += url; });
    QVERIFY(m_messages.told.value(0).text.startsWith(m_language.text("more.pickerFailed")));
    QVERIFY(m_picked.isEmpty());
    m_messages = {};
}

void tst_BrowserPicker::everyCaptionHasItsKey()
{
    for (int language = 0; language < LanguageTable::builtInCount; ++language) {
        m_language.selectBuiltIn(language);
        QCOMPARE(wrongCaptions(dialog(), m_language, {}), QStringList());
    }
}

QTEST_MAIN(tst_BrowserPicker)

#include "tst_BrowserPicker.moc"
