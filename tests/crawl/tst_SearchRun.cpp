// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SearchFixture.h"

class tst_SearchRun : public SearchFixture {
    Q_OBJECT

private slots:
    void recordsInOrderOfDiscovery();
    void speaksAsAgreed();
    void recordsWhatTheServerSays_data();
    void recordsWhatTheServerSays();
    void readsPagesWithinDepth_data();
    void readsPagesWithinDepth();
    void recordsEachUrlOnce();
    void recordsUrlsUpToTheirLimit();
    void followsRelocation_data();
    void followsRelocation();
    void relocationTargetTakesThePlace();
    void relocationWithoutTargetLeadsToTheDirectory();
    void relocationAtTheEndOfTheListLosesNothing();
    void manyFailuresDoNotNest();
};

void tst_SearchRun::recordsInOrderOfDiscovery()
{
    m_server->page("/", "<img src='i.png'><a href='a'><link href='l.css'>");
    m_server->page("/a", "<a href='/'><a href='c'><a href='b/'>");
    m_server->page("/b/", "<a href='c'><a href='../c'>");
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/a", "/l.css", "/i.png", "/c", "/b/", "/b/c" }));
    QCOMPARE(item("/b/c").tiefe, 3);
    QCOMPARE(item("/b/c").referer, url("/b/"));
    QCOMPARE(item("/c").referer, url("/a"));
    QCOMPARE(item("/i.png").referenzTyp, ReferenzTyp::Img);
    QCOMPARE(item("/").referenzTyp, ReferenzTyp::Unbekannt);
}

void tst_SearchRun::speaksAsAgreed()
{
    m_extras.referer = true;
    m_extras.userAgent = "Tarnwick test";
    m_options.quellUrl = "http://from/";
    m_server->script(
        "/", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\nContent-Type: text/html\r\n\r\n<a href='x?y=1'>" } });
    m_server->script("/x?y=1", { { "HTTP/1.1 200 OK\r\nSet-Cookie: b=2;\r\nSet-Cookie: c=3;\r\n\r\n" } });
    QVERIFY(searchToEnd());
    const QByteArray common = " HTTP/1.1\r\nHost: 127.0.0.1\r\nAccept: */*\r\nConnection: close\r\n"
                              "User-Agent: Tarnwick test\r\nReferer: ";
    QCOMPARE(m_server->requests(),
        (QByteArrayList { "GET /" + common + "http://from/\r\n\r\n", "GET /x?y=1" + common + url("/") + "\r\n\r\n" }));
    QCOMPARE(m_extras.takenCookies, (QByteArrayList { "a=1; path=/", "b=2;" }));
    QCOMPARE(eventsOf("/"), (QList { FetchEvent::Connecting, FetchEvent::Requesting }));
}

void tst_SearchRun::recordsWhatTheServerSays_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<qint32>("status");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("analysed");
    const auto row = [](const char* title, const QByteArrayList& pieces, qint32 status, const char* type, qint64 size,
                         const char* language, Zustand state, bool analysed) {
        QTest::newRow(title) << pieces << status << QByteArray(type) << size << QByteArray(language)
                             << static_cast<int>(state) << analysed;
    };
    const QByteArray html = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";
    const QByteArray link = "<a href='/found'>";
    row("a page", { html + link }, 200, "text/html", -1, "", Zustand::LaedtHtml, true);
    row("a page of an error", { "HTTP/1.0 404 No\r\nContent-Type: text/html; charset=x\r\n\r\n" + link }, 404,
        "text/html; charset=x", -1, "", Zustand::LaedtHtml, true);
    row("a file",
        { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 5000000000\r\nContent-Language: de\r\n\r\n"
            + link },
        200, "image/png", 5'000'000'000, "de", Zustand::Fertig, false);
    row("capital type", { "HTTP/1.1 200 OK\r\nContent-Type: TEXT/HTML\r\n\r\n" + link }, 200, "TEXT/HTML", -1, "",
        Zustand::Fertig, false);
    row("no fields", { "HTTP/1.1 200 OK\r\n\r\n" + link }, 200, "?", -1, "", Zustand::Fertig, false);
}

void tst_SearchRun::recordsWhatTheServerSays()
{
    QFETCH(QByteArrayList, pieces);
    QFETCH(bool, analysed);
    m_server->script("/", { pieces });
    QVERIFY(searchToEnd());
    const FundStück start = item("/");
    QTEST(start.statusCode, "status");
    QTEST(start.mimeTyp, "type");
    QTEST(start.groesse, "size");
    QTEST(start.sprache, "language");
    QTEST(static_cast<int>(start.zustand), "state");
    QCOMPARE(m_list.getAnzahl(), analysed ? 2 : 1);
}

void tst_SearchRun::readsPagesWithinDepth_data()
{
    QTest::addColumn<bool>("limited");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QByteArrayList>("found");
    QTest::newRow("limit 0") << true << 0 << QByteArrayList { "/" };
    QTest::newRow("limit 1") << true << 1 << QByteArrayList { "/", "/1" };
    QTest::newRow("limit 2") << true << 2 << QByteArrayList { "/", "/1", "/2" };
    QTest::newRow("no limit") << false << 0 << QByteArrayList { "/", "/1", "/2", "/3" };
}

void tst_SearchRun::readsPagesWithinDepth()
{
    QFETCH(bool, limited);
    QFETCH(int, limit);
    QFETCH(QByteArrayList, found);
    m_server->page("/", "<a href='1'>");
    m_server->page("/1", "<a href='2'>");
    m_server->page("/2", "<a href='3'>");
    m_options.maxDepth = limited;
    m_options.tiefe = limit;
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls(found));
    QCOMPARE(m_server->paths(), found);
}

void tst_SearchRun::recordsEachUrlOnce()
{
    const QByteArray body =
        "<a href='/a'><a href='ORIGIN/a'><a href='ORIGIN/A'><a href='#x'><a href='a#x'><a href=':x'>"
        "<a href='http://'><a href='mailto:me@h'><a href='mailto:you@h'><a href='https://127.0.0.1/'>";
    m_server->page("/", QByteArray(body).replace("ORIGIN", m_server->origin()));
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/a", "/A", "/a#x", "mailto://mailto:0/", "https://127.0.0.1:80/" }));
    QCOMPARE(sorted(m_server->paths()), (QByteArrayList { "/", "/A", "/a", "/a#x" }));
    QCOMPARE(item("mailto://mailto:0/").zustand, Zustand::NichtGeholt);
    QCOMPARE(eventsOf("mailto://mailto:0/"), QList { FetchEvent::UnsupportedProtocol });
}

void tst_SearchRun::recordsUrlsUpToTheirLimit()
{
    const QByteArray longest = m_server->origin() + '/' + QByteArray(64 * 1024 - m_server->origin().size() - 1, 'x');
    m_server->page("/", "<a href='" + longest + "'><a href='" + longest + "x'>");
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), (QByteArrayList { url("/"), longest }));
}

void tst_SearchRun::followsRelocation_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("switchedOn");
    QTest::addColumn<bool>("followed");
    QTest::newRow("301") << 301 << true << true;
    QTest::newRow("302") << 302 << true << true;
    QTest::newRow("307") << 307 << true << true;
    QTest::newRow("303") << 303 << true << false;
    QTest::newRow("308") << 308 << true << false;
    QTest::newRow("302, not to be followed") << 302 << false << false;
}

void tst_SearchRun::followsRelocation()
{
    QFETCH(int, status);
    QFETCH(bool, switchedOn);
    QFETCH(bool, followed);
    m_run->setFollowRelocation(switchedOn);
    m_server->relocation("/", "/new", status);
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ followed ? "/new" : "/" }));
    QCOMPARE(eventsOf("/").contains(FetchEvent::Relocated), followed);
}

void tst_SearchRun::relocationTargetTakesThePlace()
{
    m_server->page("/", "<img src='old'><img src='self'><img src='back'><a href='other'>");
    m_server->relocation("/old", "sub/new");
    m_server->relocation("/self", "/self");
    m_server->relocation("/back", url("/other"));
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/other", "/sub/new" }));
    const FundStück target = item("/sub/new");
    QCOMPARE(target.tiefe, 1);
    QCOMPARE(target.referer, url("/"));
    QCOMPARE(target.referenzTyp, ReferenzTyp::Img);
    QCOMPARE(detailsOf("/old").constLast(), "sub/new");
}

void tst_SearchRun::relocationWithoutTargetLeadsToTheDirectory()
{
    m_options.startUrl = url("/a/b.html");
    m_server->script("/a/b.html", { { "HTTP/1.1 302 Found\r\nSet-Cookie: a=1;\r\n\r\n" } });
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/a/" }));
    QCOMPARE(m_extras.takenCookies, QByteArrayList { "a=1;" });
}

void tst_SearchRun::relocationAtTheEndOfTheListLosesNothing()
{
    // The last item leaves the list as the walk stands on it, and only then another page finds more.
    m_server->page("/", "<a href='slow'><a href='moved'>");
    m_server->script("/slow", { {}, Afterwards::Stall });
    m_server->relocation("/moved", "/");
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->starteSuche(m_options);
    QTRY_VERIFY(m_server->paths().contains("/slow") && eventsOf("/moved").contains(FetchEvent::Relocated));
    m_server->release("/slow", okHeader("text/html") + "<a href='late'>");
    QVERIFY(finished.wait());
    QCOMPARE(item("/late").statusCode, 404);
}

void tst_SearchRun::manyFailuresDoNotNest()
{
    QByteArray body;
    for (int i = 0; i < 20'000; ++i)
        body += "<a href='http://127.0.0.1:0/" + QByteArray::number(i) + "'>";
    m_server->page("/", body);
    QVERIFY(searchToEnd());
    QCOMPARE(m_list.getAnzahl(), 20'001);
    QCOMPARE(m_list.getLetzter()->inhalt.zustand, Zustand::Fehlgeschlagen);
}

QTEST_GUILESS_MAIN(tst_SearchRun)
#include "tst_SearchRun.moc"
