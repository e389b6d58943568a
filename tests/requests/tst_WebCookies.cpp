// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieImport.h"
#include "requests/CookieStore.h"
#include "requests/RequestProfile.h"
#include "requests/WebCookieFile.h"
#include "requests/WebCookies.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDateTime>
#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class tst_WebCookies : public QObject {
    Q_OBJECT

private slots:
    void init();
    void sendsWhatRfc6265Allows_data();
    void sendsWhatRfc6265Allows();
    void replacesAndDeletes_data();
    void replacesAndDeletes();
    void sendsLongPathsFirst();
    void keepsItsFile();
    void readsFiles_data();
    void readsFiles();
    void isReadByAnotherProgram();
    void boundsWhatServersCanPile();
    void programsShareTheFile();
    void replacesOnlyFiles();
    void clears();
    void theRuleChoosesTheStore();
    void importsForBothStores();

private:
    [[nodiscard]] QString file() const { return m_folder->filePath(QStringLiteral("cookies.txt")); }
    /// The pairs that are sent, without the name of the field and the line end.
    [[nodiscard]] QByteArray sent(const QByteArray& url) const
    {
        return m_cookies->cookieLine(url).replace("Cookie: ", "").replace("\r\n", "");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WebCookies> m_cookies;
};

void tst_WebCookies::init()
{
    m_cookies.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_cookies = std::make_unique<WebCookies>();
    m_cookies->setFolder(m_folder->path());
}

void tst_WebCookies::sendsWhatRfc6265Allows_data()
{
    const auto row = table<QByteArray, QByteArray, QByteArray, QByteArray>("from", "field", "to", "line");
    row("without attributes", "http://a.example.org/", "n=v", "http://a.example.org/x/y?q", "n=v");
    row("on another port", "http://a.example.org:8080/", "n=v", "http://a.example.org/", "n=v");
    row("host only", "http://example.org/", "n=v", "http://a.example.org/", "");
    row("a domain", "http://a.example.org/", "n=v; Domain=example.org", "http://b.c.Example.org/", "n=v");
    row("a domain with a dot", "http://a.example.org/", "n=v; domain=.EXAMPLE.org", "http://example.org/", "n=v");
    row("a domain that ends alike", "http://a.example.org/", "n=v; Domain=example.org", "http://anexample.org/", "");
    row("another domain", "http://a.example.org/", "n=v; Domain=example.com", "http://example.com/", "");
    row("a host below", "http://example.org/", "n=v; Domain=a.example.org", "http://a.example.org/", "");
    row("a host above", "http://a.example.org/", "n=v; Domain=a.example.org", "http://example.org/", "");
    row("com", "http://example.com/", "n=v; Domain=com", "http://example.com/", "");
    row("co.uk", "http://example.co.uk/", "n=v; Domain=co.uk", "http://example.co.uk/", "");
    row("below co.uk", "http://a.example.co.uk/", "n=v; Domain=example.co.uk", "http://b.example.co.uk/", "n=v");
    row("a public suffix for itself", "http://co.uk/", "n=v; Domain=co.uk", "http://co.uk/", "n=v");
    row("a public suffix for others", "http://co.uk/", "n=v; Domain=co.uk", "http://example.co.uk/", "");
    row("a host of one label", "http://localhost/", "n=v; Domain=localhost", "http://localhost/", "n=v");
    row("an address", "http://127.0.0.1/", "n=v; Domain=127.0.0.1", "http://127.0.0.1/", "n=v");
    row("the end of an address", "http://127.0.0.1/", "n=v; Domain=.0.0.1", "http://127.0.0.1/", "");
    row("an address as a domain", "http://10.0.0.1/", "n=v; Domain=0.0.1", "http://9.0.0.1/", "");
    row("the directory of the page", "http://h.org/a/b/page", "n=v", "http://h.org/a/b/c/", "n=v");
    row("the directory without its slash", "http://h.org/a/b/page", "n=v", "http://h.org/a/b", "n=v");
    row("above the directory", "http://h.org/a/b/page", "n=v", "http://h.org/a/", "");
    row("a path", "http://h.org/x", "n=v; Path=/a", "http://h.org/a?q", "n=v");
    row("a longer name than the path", "http://h.org/x", "n=v; Path=/a", "http://h.org/ab", "");
    row("a path without a slash", "http://h.org/x", "n=v; Path=a", "http://h.org/b", "n=v");
    row("Secure over http", "https://h.org/", "n=v; Secure", "http://h.org/", "");
    row("Secure over https", "https://h.org/", "n=v; secure; HttpOnly", "https://h.org/", "n=v");
    row("expired", "http://h.org/", "n=v; Expires=Thu, 01 Jan 1970 00:00:00 GMT", "http://h.org/", "");
    row("still good", "http://h.org/", "n=v; Expires=Wed, 01-Jan-2098 00:00:00 GMT", "http://h.org/", "n=v");
    row("Max-Age before Expires", "http://h.org/", "n=v; Max-Age=60; Expires=Thu, 01 Jan 1970 00:00:00 GMT",
        "http://h.org/", "n=v");
    row("Max-Age 0", "http://h.org/", "n=v; Max-Age=0; Expires=Wed, 01 Jan 2098 00:00:00 GMT", "http://h.org/", "");
    row("no name", "http://h.org/", "=v", "http://h.org/", "");
    row("no equals sign", "http://h.org/", "nv", "http://h.org/", "");
    row("an empty value", "http://h.org/", "n=; Path=/", "http://h.org/", "n=");
    row("quotes, equals signs and blanks", "http://h.org/", "n = \"a b=c\" ; Path=/", "http://h.org/", "n=\"a b=c\"");
    row("a TAB", "http://h.org/", "n=a\tb", "http://h.org/", "");
    row("a line end", "http://h.org/", "n=a\r\nX: y", "http://h.org/", "");
    row("NUL", "http://h.org/", QByteArray("n=a\0b", 5), "http://h.org/", "");
    row("too long", "http://h.org/", "n=" + QByteArray(WebCookieJar::longest, 'x'), "http://h.org/", "");
    row("no URL", "", "n=v", "", "");
}

void tst_WebCookies::sendsWhatRfc6265Allows()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, to);
    m_cookies->take({ field }, from);
    QTEST(sent(to), "line");
    QVERIFY(m_cookies->finish());
    m_cookies = std::make_unique<WebCookies>();
    m_cookies->setFolder(m_folder->path());
    QTEST(sent(to), "line");
}

void tst_WebCookies::replacesAndDeletes_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("a new value") << QByteArray("n=2; Path=/") << QByteArray("n=2");
    QTest::newRow("another path") << QByteArray("n=2; Path=/a") << QByteArray("n=2; n=1");
    QTest::newRow("another name") << QByteArray("N=2; Path=/") << QByteArray("n=1; N=2");
    QTest::newRow("a past expiry") << QByteArray("n=; Path=/; Max-Age=-1") << QByteArray();
    QTest::newRow("a past expiry of another path") << QByteArray("n=; Path=/a; Max-Age=-1") << QByteArray("n=1");
}

void tst_WebCookies::replacesAndDeletes()
{
    QFETCH(QByteArray, field);
    m_cookies->take({ "n=1; Path=/" }, "http://h.org/");
    QVERIFY(m_cookies->finish());
    m_cookies->take({ field }, "http://h.org/");
    QTEST(sent("http://h.org/a/"), "line");
    QVERIFY(m_cookies->finish());
    QTEST(sent("http://h.org/a/"), "line");
}

void tst_WebCookies::sendsLongPathsFirst()
{
    m_cookies->take({ "a=1; Path=/", "b=2; Path=/d/e", "c=3; Path=/d" }, "http://h.org/");
    QCOMPARE(m_cookies->cookieLine("http://h.org/d/e/f"), "Cookie: b=2; c=3; a=1\r\n");
}

void tst_WebCookies::keepsItsFile()
{
    m_cookies->take({ "a=1; Domain=example.org; Secure; HttpOnly; Expires=Wed, 01 Jan 2098 00:00:00 GMT", "b=" },
        "https://www.example.org/d/");
    QVERIFY(!QFile::exists(file()));
    QTRY_VERIFY(QFile::exists(file()));
    QCOMPARE(contentOf(file()),
        "# Netscape HTTP Cookie File\n#HttpOnly_.example.org\tTRUE\t/d\tTRUE\t4039372800\ta\t1\n"
        "www.example.org\tFALSE\t/d\tFALSE\t0\tb\t\n");
#ifdef Q_OS_UNIX
    struct stat status { };
    QCOMPARE(stat(QFile::encodeName(file()).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0600U);
#endif
}

void tst_WebCookies::readsFiles_data()
{
    const auto row = table<QByteArray, QByteArray, bool>("line", "sentToHost", "isBroken");
    row("of the host", "h.org\tFALSE\t/\tFALSE\t0\tn\tv", "n=v", false);
    row("of a domain without its dot", "h.org\tTRUE\t/\tFALSE\t0\tn\tv", "n=v", false);
    row("with CR", "h.org\tFALSE\t/\tFALSE\t0\tn\tv\r", "n=v", false);
    row("expired", "h.org\tFALSE\t/\tFALSE\t1\tn\tv", "", false);
    row("a comment", "# h.org\tFALSE\t/\tFALSE\t0\tn\tv", "", false);
    row("too few fields", "h.org\tFALSE\t/\tFALSE\t0\tn", "", true);
    row("too many fields", "h.org\tFALSE\t/\tFALSE\t0\tn\tv\tw", "", true);
    row("no number", "h.org\tFALSE\t/\tFALSE\tx\tn\tv", "", true);
    row("the greatest number", "h.org\tFALSE\t/\tFALSE\t9223372036854775807\tn\tv", "n=v", false);
    row("a public suffix", ".org\tTRUE\t/\tFALSE\t0\tn\tv", "", true);
    row("a line end in the value", "h.org\tFALSE\t/\tFALSE\t0\tn\tv\rX: y", "", true);
    row("NUL", QByteArray("h.org\tFALSE\t/\tFALSE\t0\tn\tv\0w", 27), "", true);
    row("marked and broken", "#HttpOnly_h.org\tn", "", true);
    row("a dot", ".\tFALSE\t/\tFALSE\t0\tn\tv", "", true);
    row("no domain", "\tTRUE\t/\tFALSE\t0\tn\tv", "", true);
}

void tst_WebCookies::readsFiles()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, isBroken);
    QVERIFY(writeFile(file(), "# first\n" + line + '\n'));
    QTEST(sent("http://h.org/"), "sentToHost");
    QCOMPARE(m_cookies->brokenLines().first(), isBroken ? QList<qint64> { 2 } : QList<qint64>());
    // What is not understood is not lost either.
    m_cookies->take({ "a=1" }, "http://other.org/");
    QVERIFY(m_cookies->finish());
    QVERIFY(contentOf(file()).contains("# first\n"));
    QVERIFY(!isBroken || contentOf(file()).split('\n').contains(line));
}

void tst_WebCookies::isReadByAnotherProgram()
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    if (python.isEmpty())
        QSKIP("There is no Python 3 here.");
    m_cookies->take({ "a=1; Domain=example.org; Secure; Max-Age=1000", "b=2; Path=/p; Max-Age=1000; HttpOnly", "c=3" },
        "https://www.example.org/d/");
    QVERIFY(m_cookies->finish());
    QProcess reader;
    reader.start(python,
        { QStringLiteral("-c"), QStringLiteral(R"(
import http.cookiejar, sys
jar = http.cookiejar.MozillaCookieJar(sys.argv[1])
jar.load(ignore_discard=True, ignore_expires=True)
for c in sorted(jar, key=lambda c: c.name):
    print(c.domain, c.domain_specified, c.path, c.secure, c.expires == 0, c.name, c.value)
)"),
            file() });
    QVERIFY(reader.waitForFinished());
    QCOMPARE(reader.readAllStandardOutput().replace("\r\n", "\n"),
        ".example.org True /d True False a 1\nwww.example.org False /p False False b 2\n"
        "www.example.org False /d False True c 3\n");
}

void tst_WebCookies::boundsWhatServersCanPile()
{
    const auto fill = [&](const QByteArray& host, int count, const QByteArray& attributes) {
        QByteArrayList fields;
        for (int number = 1; number <= count; ++number)
            fields += "n" + QByteArray::number(number) + "=v" + attributes;
        m_cookies->take(fields, "http://" + host + '/');
    };
    fill("a.org", 1, {});
    fill("b.org", 200, {});
    const QByteArray line = sent("http://b.org/");
    QCOMPARE(line.count('='), WebCookieJar::mostOfADomain);
    QVERIFY(line.endsWith("n200=v") && !line.contains("n50=v"));
    QCOMPARE(sent("http://a.org/"), "n1=v");
    for (int host = 0; host < 22; ++host)
        fill('c' + QByteArray::number(host) + ".org", 150, {});
    QVERIFY(m_cookies->finish());
    QCOMPARE(sent("http://a.org/"), QByteArray());
    QCOMPARE(contentOf(file()).count('\n'), WebCookieJar::most + 1);
}

void tst_WebCookies::programsShareTheFile()
{
    WebCookies other;
    other.setFolder(m_folder->path());
    m_cookies->take({ "a=1", "gone=1" }, "http://h.org/");
    other.take({ "b=2" }, "http://h.org/");
    QVERIFY(m_cookies->finish());
    other.take({ "gone=; Max-Age=0" }, "http://h.org/");
    QVERIFY(other.finish());
    QCOMPARE(sent("http://h.org/"), "a=1; b=2");
    QCOMPARE(other.cookieLine("http://h.org/"), "Cookie: a=1; b=2\r\n");
}

void tst_WebCookies::replacesOnlyFiles()
{
    QVERIFY(QDir().mkdir(file()));
    QSignalSpy notStored(m_cookies.get(), &WebCookies::notStored);
    for (int round = 0; round < 2; ++round) {
        m_cookies->take({ "a=" + QByteArray::number(round) }, "http://h.org/");
        QCOMPARE(sent("http://h.org/"), "a=" + QByteArray::number(round));
        QVERIFY(!m_cookies->finish());
    }
    QCOMPARE(notStored.size(), 1);
    QVERIFY(QFileInfo(file()).isDir());
}

void tst_WebCookies::clears()
{
    m_cookies->take({ "a=1" }, "http://h.org/");
    QVERIFY(m_cookies->finish());
    m_cookies->take({ "b=2" }, "http://h.org/");
    QVERIFY(m_cookies->clear());
    QCOMPARE(sent("http://h.org/"), QByteArray());
    QVERIFY(m_cookies->finish());
    QVERIFY(!QFile::exists(file()));
}

void tst_WebCookies::theRuleChoosesTheStore()
{
    CookieStore store;
    store.setCookieFolder(m_folder->path());
    RequestPrefs prefs;
    prefs.useCookies = true;
    WebRules rules;
    RequestProfile profile(prefs, store, rules);
    const QByteArray url = "http://h.org/";
    profile.takeCookies({ "plain=1; path=/;" }, url);
    rules.keepsWebCookies = true;
    QCOMPARE(profile.cookieLine(url), QByteArray());
    profile.takeCookies({ "web=1" }, url);
    QCOMPARE(profile.cookieLine(url), "Cookie: web=1\r\n");
    rules.keepsWebCookies = false;
    QCOMPARE(profile.cookieLine(url), "Cookie: plain=1\r\n");

    rules.keepsWebCookies = true;
    prefs.useCookies = prefs.setCookies = false;
    profile.takeCookies({ "other=1" }, url);
    QCOMPARE(profile.cookieLine(url), QByteArray());
    prefs.useCookies = true;
    QCOMPARE(profile.cookieLine(url), "Cookie: web=1\r\n");
    store.finish();
    QVERIFY(QFile::exists(file()));
    QVERIFY(store.deleteAll().isEmpty());
    QCOMPARE(profile.cookieLine(url), QByteArray());
    QVERIFY(!QFile::exists(file()));
}

void tst_WebCookies::importsForBothStores()
{
    const QString source = m_folder->filePath(QStringLiteral("exported"));
    QVERIFY(writeFile(source,
        "# exported\n.example.org\tTRUE\t/\tTRUE\t4039372800\tsecure\t1\n"
        "example.org\tFALSE\t/\tFALSE\t1\told\t1\nexample.org\tFALSE\t/\tFALSE\t0\tplain\t1\n"));
    CookieStore store;
    store.setCookieFolder(m_folder->path());
    CookieImport reading(CookieImport::sourceFor(source), store, CookieImport::Taking::Harmless);
    while (reading.step()) { }
    QCOMPARE(store.getCookieHeader("http://example.org/"), "Cookie: plain=1\r\n");
    QCOMPARE(store.web().cookieLine("https://example.org/"), "Cookie: secure=1; plain=1\r\n");
    QCOMPARE(store.web().cookieLine("https://a.example.org/"), "Cookie: secure=1\r\n");
    QCOMPARE(store.web().cookieLine("http://example.org/"), "Cookie: plain=1\r\n");
}

QTEST_GUILESS_MAIN(tst_WebCookies)
#include "tst_WebCookies.moc"
