// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ConsoleFixture.h"
#include "support/Text.h"

#include <QFile>
#include <QTest>

/// Searches that keep and send cookies, and the commands for the stored ones.
class tst_cli_cookies : public QObject, ConsoleFixture {
    Q_OBJECT

private slots:
    void init() { reset(); }
    void keepsAndSendsCookies();
    void importsAndClearsCookies();
    void importsWhatIsHarmless();
};

void tst_cli_cookies::keepsAndSendsCookies()
{
    m_server->script("/", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\n\r\n" } });
    QCOMPARE(run(search("--no-accept-cookies")).status, 0);
    const QByteArray show = "cookies show URL --cookies @cookies";
    QCOMPARE(run(show).out, "");
    QCOMPARE(run(search()).status, 0);
    QCOMPARE(run(show).out, "Cookie: a=1\n");
    QVERIFY(!m_server->requests().constLast().contains("Cookie"));
    QCOMPARE(run(search("--send-cookies")).status, 0);
    QVERIFY(m_server->requests().constLast().contains("\r\nCookie: a=1\r\n"));

    QVERIFY(writeFile(file("none"), {}));
    m_server->page("/", "<a href='b'>");
    m_server->script("/b", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\n\r\n" } });
    QCOMPARE(run("search URL --cookies @none").err.count("tarnwick-cli: Cookies cannot be stored in this folder: "), 1);
    m_server->script("/", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\n\r\n" } });

    // Without the option, cookies go to the user's own folder.
    QCOMPARE(run("search URL").status, 0);
    QCOMPARE(contentOf(file("data/Cookies/127.0.0.1.tkc")), "/\ta\t1\r\n");
    QCOMPARE(run("cookies show 127.0.0.1/x").out, "Cookie: a=1\n");
}

void tst_cli_cookies::importsAndClearsCookies()
{
    QVERIFY(writeFile(file("cookies.txt"), ".0.0.1\tTRUE\t/\tFALSE\t0\ta\t1\nx\nh\tTRUE\t/\tFALSE\t0\tb\t2\n"));
    const Result both = run("cookies import @cookies.txt @cookies.txt --cookies @cookies");
    QCOMPARE(both.status, 0);
    QCOMPARE(both.out, "4 Cookies were set.\n");
    QCOMPARE(both.err.count("cookies.txt: Lines without a usable cookie: 2"), 2);
    QCOMPARE(run("cookies show URL --cookies @cookies").out, "Cookie: a=1\n");
    const Result partly = run("cookies import @none.txt @cookies.txt --cookies @cookies");
    QCOMPARE(partly.status, 1);
    QCOMPARE(partly.out, "2 Cookies were set.\n");
    QVERIFY(partly.err.startsWith("tarnwick-cli: Error while importing cookies: "));
    QCOMPARE(run("cookies clear --cookies @cookies").out, "Cookies were deleted.\n");
    QCOMPARE(run("cookies show URL --cookies @cookies").out, "");
    QCOMPARE(run("cookies clear --cookies @nowhere").status, 0);
    QVERIFY(!QFile::exists(file("nowhere")));
}

void tst_cli_cookies::importsWhatIsHarmless()
{
    QVERIFY(writeFile(file("cookies.txt"), "0.0.1\tx\t/\tTRUE\t0\ta\t1\n0.0.1\tx\t/x\tFALSE\t0\tb\t2\n"));
    const Result harmless = run("cookies import @cookies.txt --cookies @cookies");
    QCOMPARE(harmless.status, 0);
    QCOMPARE(harmless.out, "1 Cookies were set.\n");
    QCOMPARE(harmless.err,
        "tarnwick-cli: Never sent, because no request matches their path: 1\n"
        "tarnwick-cli: Left out, because they are for https only: 1\ntarnwick-cli: --all takes those that were left "
        "out.\n");
    QCOMPARE(run("cookies show URL --cookies @cookies").out, "");
    QCOMPARE(run("cookies import @cookies.txt --all --cookies @cookies").out, "2 Cookies were set.\n");
    QCOMPARE(run("cookies show URL --cookies @cookies").out, "Cookie: a=1\n");

    QVERIFY(writeFile(file("cookies.json"), "[]"));
    const Result json = run("cookies import @cookies.json --cookies @cookies");
    QCOMPARE(json.status, 1);
    QVERIFY2(json.err.contains("in the Netscape format, as cookies.txt."), json.err.constData());
}

QTEST_GUILESS_MAIN(tst_cli_cookies)
#include "tst_cli_cookies.moc"
