// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ConsoleFixture.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

/// The commands that download and that number URLs.
class tst_cli_download : public QObject, ConsoleFixture {
    Q_OBJECT

private slots:
    void init() { reset(); }
    void downloads_data();
    void downloads();
    void downloadsSayWhyTheyFailed();
    void downloadsAsBrowsersDo_data();
    void downloadsAsBrowsersDo();
    void numbersUrls();
};

void tst_cli_download::downloads_data()
{
    const auto row = table<QByteArray, QByteArray, int>("line", "out", "status");
    row("a URL", "download @t URL/c.bin", "C @t/c.bin URL/c.bin\n", 0);
    row("what is too short", "download @t URL/a.html", "S @t/a.html URL/a.html\n", 2);
    row("what fails", "download @t https://h/ URL/c.bin", "F - https://h/\nC @t/c.bin URL/c.bin\n", 2);
    row("what has moved", "download @t URL/old", "F - URL/c.bin\n", 2);
    row("what has moved, followed", "download @t URL/old --follow-relocation --parallel 1", "C @t/c.bin URL/c.bin\n",
        0);
    row("a circle of moves ends", "download @t URL/circle --follow-relocation", "F - URL/circle\n", 2);
    row("an error page", "download @t URL/none", "C @t/none URL/none\n", 0);
    row("an error page, refused", "download @t URL/none --fail", "F - URL/none\n", 2);
    row("no name", "download @t URL/empty/", "C @t/index URL/empty/\n", 0);
    row("no name, not renamed", "download @t URL/empty/ --no-rename-for-ms", "F - URL/empty/\n", 2);
    row("names with all rules", "download @t URL/c.bin?x --dir-by-url --ext-by-mime --rename-for-ms",
        "C @t/1/0/0/127/PORT/c.bin%3Fx.zip URL/c.bin?x\n", 0);
    row("the items of a search file", "download @t @s.twk --mime application/zip", "C @t/c.bin URL/c.bin\n", 0);
    row("a file that is no search file", "download @t @no.twk", "", 1);
    row("no source", "download @t", "", 1);
    row("too many at once", "download @t URL --parallel 11", "", 1);
}

void tst_cli_download::downloads()
{
    QFETCH(QByteArray, line);
    const QByteArray zip = "HTTP/1.1 200 OK\r\nContent-Type: application/zip\r\nContent-Length: 3\r\n\r\nzip";
    m_server->script("/c.bin", { { zip } });
    m_server->script("/c.bin?x", { { zip } });
    m_server->relocation("/old", "c.bin");
    m_server->relocation("/circle", "/circle");
    QVERIFY(writeFile(file("s.twk"),
        "Nonsense=1\r\nResults:\r\n" + m_server->origin() + "/c.bin\tapplication/zip\t3\r\n" + m_server->origin()
            + "/a.html\ttext/html\r\n"));
    const Result result = run(line);
    QTEST(result.status, "status");
    QCOMPARE(result.err.contains("s.twk:1: Invalid attribut"), line.contains("s.twk"));
    QByteArray out;
    for (const QByteArray& printed : result.out.split('\n').first(result.out.count('\n'))) {
        const QByteArrayList fields = printed.split('\t');
        const QString path = QDir::fromNativeSeparators(QString::fromUtf8(fields.value(1)));
        QCOMPARE(QFileInfo(path).isFile(), fields[0] != "F");
        out += QByteArrayList { fields[0], path.toUtf8(), fields.value(2) }.join(' ') + '\n';
    }
    out.replace(m_folder->path().toUtf8(), "@").replace(QByteArray::number(m_server->serverPort()), "PORT");
    QTEST(out.replace("@/", "@"), "out");
}

void tst_cli_download::downloadsSayWhyTheyFailed()
{
    QVERIFY(writeFile(file("there"), "x"));
    QVERIFY(writeFile(file("s.twk"),
        "Results:\r\nmailto://me:0/\t\t0\r\nftp://h:21/\t\t0\r\n" + m_server->origin() + "/there\t\t0\r\n"));
    m_server->script("/short", { { "HTTP/1.1 500 Oh\r\nContent-Length: 9\r\n\r\nx" } });
    const Result result =
        run("download @. https://h/ http://127.0.0.1:1/x URL/none URL/short URL/e/ @s.twk --no-rename-for-ms -p 1");
    QCOMPARE(result.status, 2);
    QByteArrayList lines = QByteArray(result.err).replace(m_server->origin(), "URL").split('\n');
    QVERIFY2(lines.takeFirst().endsWith("s.twk: items left out, because only http and https are supported: 2"),
        result.err.constData());
    const QByteArrayList expected { "https://h/: Unsupported protocol",
        "http://127.0.0.1:1/x: Network failure: Connection refused", "URL/none: Status 404",
        "URL/short: Disconnected before file seemed to be complete.; Status 500",
        "URL/e/: Error while creating file; Status 404", "URL/there: File already exists; Status 404",
        "tarnwick-cli: https URLs that were not fetched: 1. --modern fetches them.", "" };
    QCOMPARE(lines, expected);
}

void tst_cli_download::downloadsAsBrowsersDo_data()
{
    const auto row = table<QByteArray, QByteArray, int>("options", "told", "status");
    row("an authority that is named", "--modern --ca " TARNWICK_CERTIFICATES "/authority.pem", "", 0);
    row("a host that is excepted", "--modern --insecure-host 127.0.0.1", "", 0);
    row("an unknown authority", "--modern",
        "The certificate was issued by an unknown authority: Tarnwick test authority", 2);
    row("a proxy where nobody listens", "--modern --insecure-host 127.0.0.1 --proxy http://127.0.0.1:1",
        "Network failure: ", 2);
    row("plain mode", "", "--modern fetches them", 2);
    row("no file of certificates", "--modern --ca @none.pem", "--ca: ", 1);
    row("no kind of proxy", "--modern --proxy ftp://h", "--proxy needs", 1);
    row("an option that needs the mode", "--insecure-host h", "--insecure-host needs --modern", 1);
}

void tst_cli_download::downloadsAsBrowsersDo()
{
    QFETCH(QByteArray, options);
    QFETCH(QByteArray, told);
    if (*ScriptedServer::withoutTls())
        QSKIP(ScriptedServer::withoutTls());
    ScriptedServer secure("good");
    secure.script("/d/moved",
        { { "HTTP/1.1 308 Moved\r\nLocation: ../x.bin#f\r\nContent-Length: 0\r\n\r\n" }, Afterwards::Keep });
    secure.script("/x.bin",
        { { "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n" }, Afterwards::Keep });
    const Result result = run("download @t " + secure.origin() + "/d/moved --follow-relocation " + options);
    QTEST(result.status, "status");
    QVERIFY2(told.isEmpty() ? result.err.isEmpty() : result.err.contains(told), result.err.constData());
    QCOMPARE(contentOf(file("t/x.bin")), result.status == 0 ? "abc" : "");
}

void tst_cli_download::numbersUrls()
{
    QCOMPARE(run("number x.y.z/img.jpg --pos 16 --min 9 --max 11 --digits 2").out,
        "http://x.y.z/img09.jpg\nhttp://x.y.z/img10.jpg\nhttp://x.y.z/img11.jpg\n");
    const QByteArray number = "number http://h/ --pos 9 ";
    QCOMPARE(run(number + "--min 26 --max 27 --type lower").out, "http://h/z\nhttp://h/a`\n");
    QCOMPARE(run(number + "--min 10 --max 10 --type hex").out, "http://h/A\n");
    QCOMPARE(run(number + "--min 27 --max 27 --type upper").out, "http://h/A@\n");
    QCOMPARE(run(number + "--min 2 --max 1").out, "");
    for (const char* const more : { "--min 1", "--min 1 --max 1 --type roman", "--min 1 --max 1 --digits 2000000000" })
        QCOMPARE(run(number + more).status, 1);
    QCOMPARE(run("number .h --pos 1 --min 1 --max 1").status, 1);
}

QTEST_GUILESS_MAIN(tst_cli_download)
#include "tst_cli_download.moc"
