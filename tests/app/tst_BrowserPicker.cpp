// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BrowserPicker.h"
#include "app/dialog_getUrl.h"
#include "base/Platform.h"
#include "base/lang.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

/// Browses real pages with the real browser.
class tst_BrowserPicker : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void typesAndGoes();
    void followsLinks();
    void takesThePageWhosePictureIsSlow();
    void keepsWhatIsTyped();
    void cancelTakesNothing();
    void keepsToItself();
    void givesWayToTheUsersBrowser_data();
    void givesWayToTheUsersBrowser();
    void everyCaptionHasItsKey();

private:
    void pick(const QByteArray& url);
    static void type(const QString& text);
    [[nodiscard]] static QWidget& dialog();
    [[nodiscard]] static QString link() { return control<QLineEdit>(dialog(), "link").text(); }
    [[nodiscard]] QString url(const char* path) const { return QString::fromLatin1(m_server->origin() + path); }

    QTemporaryDir m_home;
    LanguageTable m_language;
    AnsweredMessages m_messages;
    RecordingShell m_shell;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<BrowserPicker> m_picker;
    QList<QByteArray> m_picked;
};

void tst_BrowserPicker::initTestCase()
{
    for (const char* folder : { "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME" })
        qputenv(folder, m_home.path().toLocal8Bit());
    m_picker = std::make_unique<BrowserPicker>(
        m_language, m_messages, m_shell, QStringList { QStringLiteral(TARNWICK_BROWSER_FOLDER) });
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

/// Types over the text of the address field, key by key.
void tst_BrowserPicker::type(const QString& text)
{
    auto& field = control<QLineEdit>(dialog(), "link");
    field.selectAll();
    QTest::keyClicks(&field, text);
}

void tst_BrowserPicker::typesAndGoes()
{
    m_server->page("/typed", "typed");
    pick(m_server->origin());
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/"), 30'000);
    control<QLineEdit>(dialog(), "link").setText(url("/typed").mid(7)); // without http://
    QVERIFY(!m_server->paths().contains("/typed"));
    click(dialog(), "b_go");
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/typed"), 30'000);
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

void tst_BrowserPicker::takesThePageWhosePictureIsSlow()
{
    m_server->page("/next", "<img src='picture'>next");
    m_server->script("/picture", { { okHeader("image/png") }, Afterwards::Stall });
    pick(m_server->origin());
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/"), 30'000);
    type(url("/next"));
    QTest::keyClick(&control<QLineEdit>(dialog(), "link"), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(m_server->paths().contains("/picture"), 30'000);
    QTRY_COMPARE_WITH_TIMEOUT(link(), url("/next"), 30'000);
    click(dialog(), "b_ok");
    QCOMPARE(m_picked, QList<QByteArray> { m_server->origin() + "/next" });
}

void tst_BrowserPicker::keepsWhatIsTyped()
{
    // The first page stays away until the user types, and sends the browser on by itself then.
    m_server->script("/", { { okHeader("text/html") }, Afterwards::Stall });
    m_server->page("/sent", "<a href='linked' style='position: fixed; inset: 0'>x</a>");
    m_server->page("/linked", "linked");
    pick(m_server->origin());
    QTRY_VERIFY_WITH_TIMEOUT(m_server->paths().contains("/"), 30'000);
    type(QStringLiteral("example"));
    m_server->release("/", "<script>location = '/sent'</script>");
    QTRY_VERIFY_WITH_TIMEOUT(m_server->paths().contains("/sent"), 30'000);
    QWidget& page = *control<QWidget>(dialog(), "IE").focusProxy();
    QSignalSpy changed(&control<QLineEdit>(dialog(), "link"), &QLineEdit::textChanged);
    QTRY_VERIFY_WITH_TIMEOUT((QTest::mouseClick(&page, Qt::LeftButton), link() == url("/linked")), 30'000);
    // A link that the user follows is the only page that was written over the typed text.
    QCOMPARE(changed.count(), 1);
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
    QTRY_VERIFY_WITH_TIMEOUT((QTest::mouseClick(&page, Qt::LeftButton), link() == url("/end")), 30'000);
    QVERIFY(!m_server->paths().contains("/popup?unasked"));
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QVERIFY(m_messages.told.isEmpty());
    for (const auto place :
        { QStandardPaths::DownloadLocation, QStandardPaths::AppDataLocation, QStandardPaths::CacheLocation })
        QVERIFY(!QDir(QStandardPaths::writableLocation(place)).exists(QStringLiteral("QtWebEngine")));
}

void tst_BrowserPicker::givesWayToTheUsersBrowser_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("sandbox");
    QTest::addColumn<qsizetype>("told");
    const auto none = QStringLiteral("none");
    const QString broken = m_home.path();
    QTest::newRow("without its library") << none << false << qsizetype { 0 };
    QTest::newRow("if its library is none") << broken << false << qsizetype { 1 };
    if (platform::isSuperuser())
        QTest::newRow("of the superuser") << QStringLiteral(TARNWICK_BROWSER_FOLDER) << true << qsizetype { 0 };
}

void tst_BrowserPicker::givesWayToTheUsersBrowser()
{
    QFETCH(QString, folder);
    QFETCH(bool, sandbox);
    QVERIFY(writeFile(m_home.filePath(QStringLiteral("tarnwick_browser.so")), "nothing"));
    if (sandbox)
        qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    m_shell = {};
    m_messages = {};
    BrowserPicker picker(m_language, m_messages, m_shell, { folder });
    picker.pickUrl("http://h/", [](const QByteArray&) {});
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    QCOMPARE(m_shell.openedUrls, QList { QUrl(QStringLiteral("http://h/")) });
    QTEST(m_messages.told.size(), "told");
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
