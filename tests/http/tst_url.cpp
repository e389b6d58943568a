// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/copiedUrl.h"
#include "http/url.h"
#include "support/Table.h"

#include <QTest>

class tst_url : public QObject {
    Q_OBJECT

private slots:
    void takesUrlsApart_data();
    void takesUrlsApart();
    void takesWhatIsTyped();
    void resolvesReference_data();
    void resolvesReference();
    void resolvesEndlessParents();
    void cutsToLevel_data();
    void cutsToLevel();
    void givesComponentOfLevel_data();
    void givesComponentOfLevel();
    void readsCopiedText_data();
    void readsCopiedText();
};

void tst_url::takesUrlsApart_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<QByteArray>("protocol");
    QTest::addColumn<QByteArray>("host");
    QTest::addColumn<qint32>("port");
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("directory");
    QTest::addColumn<QByteArray>("file");
    const auto row = [](const char* url, const char* protocol, const char* host, qint32 port, const char* path,
                         const char* directory, const char* file) {
        QTest::newRow(url) << QByteArray(url) << QByteArray(protocol) << QByteArray(host) << port << QByteArray(path)
                           << QByteArray(directory) << QByteArray(file);
    };
    row("http://h", "http", "h", 80, "/", "/", "h");
    row("http://h:8080/x", "http", "h", 8080, "/x", "/", "x");
    row("http://h/a/b.php?x=/c", "http", "h", 80, "/a/b.php?x=/c", "/a/b.php?x=/", "c");
    row("http://h/a:b", "http", "h/a", 0, "/a:b", "/", "a:b");
    row("http://h:port/x", "http", "h", 0, "/x", "/", "x");
    row("http://h:99999999999/x", "http", "h", 0, "/x", "/", "x");
    row("http://h:70000/x", "http", "h", 70000, "/x", "/", "x");
    row("http://h/a/b\\c.zip", "http", "h", 80, "/a/b\\c.zip", "/a/", "c.zip");
    row("http://h?q", "http", "h?q", 80, "/", "/", "h?q");
    row("http:///x", "http", "", 80, "/x", "/", "x");
    row("h/x", "", "h", 80, "/x", "/", "x");
    row("mailto:me", "mailto", "mailto", 0, "/", "/", "mailto:me");
    row("javascript:go('/x')", "javascript", "javascript", 0, "/x')", "/", "x')");
    row("", "", "", 80, "/", "/", "");
}

void tst_url::takesUrlsApart()
{
    QFETCH(QByteArray, url);
    QTEST(url::protocolOf(url).toByteArray(), "protocol");
    QTEST(url::hostOf(url).toByteArray(), "host");
    QTEST(url::portOf(url), "port");
    QTEST(url::pathOf(url).toByteArray(), "path");
    QTEST(url::directoryOf(url).toByteArray(), "directory");
    QTEST(url::fileNameOf(url).toByteArray(), "file");
}

void tst_url::takesWhatIsTyped()
{
    QCOMPARE(url::fromTyped(" HTTP://WWW.Example.org:80/A?B#C\t"), "http://www.example.org:80/A?B#C");
    QCOMPARE(url::fromTyped("Example.ORG/A:B"), "example.org/A:B");
    QCOMPARE(url::fromTyped("H?A://B"), "h?A://B");
    QCOMPARE(url::fromTyped(" "), "");
}

void tst_url::resolvesReference_data()
{
    const auto row = table<QByteArray, QByteArray, QByteArray>("base", "reference", "absolute");
    const char* const page = "http://h:80/a/b/c.html";
    row("a neighbour", page, "d.html", "http://h:80/a/b/d.html");
    row("from the root", page, "/x", "http://h:80/x");
    row("from the parent", page, "../x", "http://h:80/a/x");
    row("above the root", page, "../../../../x", "http://h:80/x");
    row("the parent itself", page, "..", "http://h:80/a/");
    row("the same directory", page, "./x", "http://h:80/a/b/x");
    row("dots inside stay", page, "x/../y", "http://h:80/a/b/x/../y");
    row("a dot alone is a name", page, ".", "http://h:80/a/b/.");
    row("a fragment", page, "#top", page);
    row("empty", page, "", "http://h:80/a/b/");
    row("a query", page, "?q=1", "http://h:80/a/b/?q=1");
    row("the root behind a parent", page, "..//x", "http://h:80/x");
    row("another protocol", page, "https://other/y", "https://other/y");
    row("a colon in a relative reference", page, "p.php?t=12:00", "p.php?t=12:00");
    row("http is forced", "https://h/a/", "x", "http://h:80/a/x");
    row("a fragment keeps the protocol", "https://h/a/", "#x", "https://h/a/");
    row("the port is kept", "http://h:8080/a", "x", "http://h:8080/x");
    row("the query of the page counts as directory", "http://h:80/a?b=/c", "x", "http://h:80/a?b=/x");
}

void tst_url::resolvesReference()
{
    QFETCH(QByteArray, base);
    QFETCH(QByteArray, reference);
    QTEST(url::resolveReference(base, reference), "absolute");
}

void tst_url::resolvesEndlessParents()
{
    // Cut one directory at a time, this would take minutes.
    const QByteArray base = "http://h:80" + QByteArray("/a").repeated(200'000) + '/';
    const QByteArray ups = QByteArray("../").repeated(199'999);
    QCOMPARE(url::resolveReference(base, ups + "x"), "http://h:80/a/x");
    QCOMPARE(url::resolveReference(base, ups + "../../x"), "http://h:80/x");
}

void tst_url::cutsToLevel_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<qint32>("level");
    QTest::addColumn<QByteArray>("prefix");
    const auto row = [](const char* url, qint32 level, const char* prefix) {
        QTest::addRow("%s at %d", url, level) << QByteArray(url) << level << QByteArray(prefix);
    };
    const char* const page = "http://srv.example.org:80/a/b/c.html";
    row(page, 0, "http://");
    row(page, 1, "http://org");
    row(page, 2, "http://example.org");
    row(page, 3, "http://srv.example.org");
    row(page, 4, "http://srv.example.org:80/");
    row(page, 5, "http://srv.example.org:80/a/");
    row(page, 6, "http://srv.example.org:80/a/b/");
    row(page, 99, "http://srv.example.org:80/a/b/");
    row("https://h/x/y", 2, "https://h:80/");
    row("mailto:me", 1, "mailto://mailto");
    row("mailto:me", 2, "mailto://mailto:0/");
}

void tst_url::cutsToLevel()
{
    QFETCH(QByteArray, url);
    QFETCH(qint32, level);
    const QByteArray cut = url::subUrl(url, level);
    QTEST(cut, "prefix");
    QVERIFY(url::isSubUrl(cut, url, level));
    for (const QByteArray& other :
        QByteArrayList { cut + 'x', 'x' + cut, cut.chopped(qMin(cut.size(), qsizetype { 1 })) })
        QVERIFY(other == cut || !url::isSubUrl(other, url, level));
}

void tst_url::givesComponentOfLevel_data()
{
    const auto row = table<qint32, bool, QByteArray>("level", "withColon", "component");
    row("top label", 0, false, "org");
    row("middle label", 1, true, "example");
    row("first label", 2, false, "srv");
    row("port", 3, false, "8080");
    row("port with colon", 3, true, ":8080");
    row("first directory", 4, false, "a");
    row("last directory", 5, false, "b");
    row("beyond", 6, false, {});
}

void tst_url::givesComponentOfLevel()
{
    QFETCH(qint32, level);
    QFETCH(bool, withColon);
    QTEST(url::urlComponent("http://srv.example.org:8080/a/b/c.html", level, withColon), "component");
}

void tst_url::readsCopiedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("url");
    const auto row = [](const char* name, const char* text, const QByteArray& url) {
        QTest::newRow(name) << QString::fromUtf8(text) << url;
    };
    row("http", "http://h/a?b=%20c#d", "http://h/a?b=%20c#d");
    row("https, with blanks around it", " \t\r\nhttps://h:8443/\u00a0\n", "https://h:8443/");
    row("ftp", "ftp://h/f", "ftp://h/f");
    row("in capitals", "HTTP://H/A", "http://h/A");
    row("with letters beyond ASCII", "http://h/\u00fc?\u00e9", "http://h/%C3%BC?%C3%A9");
    row("a blank in it", "http://h/a b", "");
    row("words before it", "see http://h/", "");
    row("two of them", "http://h/\nhttp://i/", "");
    row("a control character", "http://h/\x01", "");
    row("a character that reverses the rest", "http://h/\u202egpj.exe", "");
    row("without a protocol", "h.example/x", "");
    row("without a host", "http:///x", "");
    row("no port", "http://h:port/", "");
    row("a file", "file:///etc/passwd", "");
    row("a mail address", "mailto:me@h", "");
    row("a script", "javascript:alert(1)", "");
    row("nothing", " ", "");
    const QByteArray longest = "http://h/" + QByteArray(url::longest - 9, 'x');
    row("as long as can be", longest.constData(), longest);
    row("too long", QByteArray(longest + "x").constData(), "");
    row("too long when encoded", QByteArray("http://h/" + QByteArray("\u00fc").repeated(url::longest / 4)).constData(),
        "");
}

void tst_url::readsCopiedText()
{
    QFETCH(QString, text);
    QTEST(copiedUrl(text), "url");
}

QTEST_GUILESS_MAIN(tst_url)
#include "tst_url.moc"
