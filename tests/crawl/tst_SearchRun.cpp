// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchRun.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"
#include "support/Text.h"

#include <QSignalSpy>
#include <QTest>

class tst_SearchRun : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void recordsInOrderOfDiscovery();
    void speaksAsAgreed();
    void recordsWhatTheServerSays_data();
    void recordsWhatTheServerSays();
    void readsPagesWithinDepth_data();
    void readsPagesWithinDepth();
    void recordsEachUrlOnce();
    void keepsUrlOnOneLine();
    void boundsWhatAServerCanPile();
    void followsRelocation_data();
    void followsRelocation();
    void relocationTargetTakesThePlace();
    void relocationWithoutTargetLeadsToTheDirectory();
    void relocationAtTheEndOfTheListLosesNothing();
    void relocationRingEnds();
    void faultIsShownAndSearchGoesOn_data();
    void faultIsShownAndSearchGoesOn();
    void manyFailuresDoNotNest();
    void stopLeavesTheRestForContinue();
    void stopHandsOnWhatAPageHeld();
    void stopEndsAnalysis();
    void abandonedFetchIsDoneByContinue();
    void continueWithNothingLeftFinishesOnce();
    void newSearchDropsTheOld();
    void finishedMayStartAnother();
    void unsupportedStartUrlWaitsForStop();

private:
    [[nodiscard]] QByteArray url(const QByteArray& path) const { return m_server->origin() + path; }
    [[nodiscard]] QByteArrayList urls(const QByteArrayList& paths) const;
    [[nodiscard]] FundStück item(const QByteArray& path) const;
    [[nodiscard]] QList<FetchEvent> eventsOf(const QByteArray& path) const;
    [[nodiscard]] QByteArrayList detailsOf(const QByteArray& path) const;
    [[nodiscard]] bool searchToEnd();

    std::unique_ptr<ScriptedServer> m_server;
    PlainExtras m_extras;
    SearchOptions m_options;
    FundListe m_list;
    std::unique_ptr<SearchRun> m_run;
    QList<QPair<QByteArray, FetchReport>> m_reports;
};

void tst_SearchRun::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_server = std::make_unique<ScriptedServer>();
    m_extras = {};
    m_options = {};
    m_options.startUrl = m_server->origin();
    m_options.maxDepth = false;
    m_run = std::make_unique<SearchRun>(m_list, m_extras);
    m_reports.clear();
    connect(m_run.get(), &SearchRun::reported, this, [this](FundKnoten* knoten, const FetchReport& report) {
        m_reports += { knoten->inhalt.adresse, report };
    });
}

void tst_SearchRun::cleanup()
{
    m_run.reset();
    m_server.reset();
    m_list.clear();
}

QByteArrayList tst_SearchRun::urls(const QByteArrayList& paths) const
{
    QByteArrayList urls;
    for (const QByteArray& path : paths)
        urls += path.startsWith('/') ? url(path) : path;
    return urls;
}

FundStück tst_SearchRun::item(const QByteArray& path) const
{
    for (const FundKnoten* knoten = m_list.getStart(); knoten; knoten = knoten->naechster) {
        if (knoten->inhalt.adresse == url(path) || knoten->inhalt.adresse == path)
            return knoten->inhalt;
    }
    return {};
}

QList<FetchEvent> tst_SearchRun::eventsOf(const QByteArray& path) const
{
    QList<FetchEvent> events;
    for (const auto& [adresse, report] : m_reports) {
        if (adresse == url(path) || adresse == path)
            events += report.event;
    }
    return events;
}

QByteArrayList tst_SearchRun::detailsOf(const QByteArray& path) const
{
    QByteArrayList details;
    for (const auto& [adresse, report] : m_reports) {
        if (adresse == url(path))
            details += report.detail;
    }
    return details;
}

bool tst_SearchRun::searchToEnd()
{
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->starteSuche(m_options);
    return (finished.count() == 1 || finished.wait(20'000)) && finished.count() == 1 && !m_run->isSearching();
}

void tst_SearchRun::recordsInOrderOfDiscovery()
{
    m_server->page("/", "<img src='i.png'><a href='a'><link href='l.css'><a href='b/'>");
    m_server->page("/a", "<a href='/'><a href='c'><a href='b/'>");
    m_server->page("/b/", "<a href='c'><a href='../c'>");
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/a", "/b/", "/l.css", "/i.png", "/c", "/b/c" }));
    QCOMPARE(item("/b/c").tiefe, 2);
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
    row("byte by byte", dripped(html + link), 200, "text/html", -1, "", Zustand::LaedtHtml, true);
    row("the blank line cut in two", { html.chopped(1), "\n" + link }, 200, "text/html", -1, "", Zustand::LaedtHtml,
        true);
    row("a body that breaks off",
        { "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 999\r\n\r\n" + link + "<a hr" }, 200,
        "text/html", 999, "", Zustand::LaedtHtml, true);
    row("a body that is reset", { html + link, "<a hr" }, 200, "text/html", -1, "", Zustand::LaedtHtml, true);
    row("no body", { html }, 200, "text/html", -1, "", Zustand::LaedtHtml, false);
    row("a file",
        { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 5000000000\r\nContent-Language: de\r\n\r\n"
            + link },
        200, "image/png", 5'000'000'000, "de", Zustand::Fertig, false);
    row("capital type", { "HTTP/1.1 200 OK\r\nContent-Type: TEXT/HTML\r\n\r\n" + link }, 200, "TEXT/HTML", -1, "",
        Zustand::Fertig, false);
    row("no fields", { "HTTP/1.1 200 OK\r\n\r\n" + link }, 200, "?", -1, "", Zustand::Fertig, false);
    row("no HTTP at all", { "Hello\r\n\r\n" + link }, 0, "?", -1, "", Zustand::Fertig, false);
    row("a header of just the limit, its end cut",
        { "HTTP/1.1 200 OK\r\nX: " + QByteArray(256 * 1024 - 20, 'x') + "\r\n", "\r", "\n" }, 200, "?", -1, "",
        Zustand::Fertig, false);
    row("303 is no relocation", { "HTTP/1.1 303 See\r\nLocation: /found\r\n\r\n" }, 303, "?", -1, "", Zustand::Fertig,
        false);
}

void tst_SearchRun::recordsWhatTheServerSays()
{
    QFETCH(QByteArrayList, pieces);
    QFETCH(bool, analysed);
    const bool reset = qstrcmp(QTest::currentDataTag(), "a body that is reset") == 0;
    m_server->script("/", { pieces, reset ? Afterwards::Reset : Afterwards::Close });
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
    QCOMPARE(m_server->paths(), (QByteArrayList { "/", "/a", "/A", "/a#x" }));
    QCOMPARE(item("mailto://mailto:0/").zustand, Zustand::NichtGeholt);
    QCOMPARE(eventsOf("mailto://mailto:0/"), QList { FetchEvent::UnsupportedProtocol });
}

void tst_SearchRun::keepsUrlOnOneLine()
{
    m_server->page("/", QByteArrayLiteral("<a href='x\t1\r\nX-Evil 1\0'>"));
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/x%091%0D%0AX-Evil 1%00" }));
    QVERIFY(!m_server->requests().last().contains("\nX-Evil"));
}

void tst_SearchRun::boundsWhatAServerCanPile()
{
    const QByteArray longest = m_server->origin() + '/' + QByteArray(64 * 1024 - m_server->origin().size() - 1, 'x');
    m_server->page("/", "<a href='" + longest + "'><a href='" + longest + "x'>");
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), (QByteArrayList { url("/"), longest }));

    // The server never closes: what ends the page is its length.
    m_server->script("/", { { okHeader("text/html") + "<a href='1'>", QByteArray(5000, ' ') }, Afterwards::Stall });
    m_run->setBodyLimit(5000);
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/1" }));
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

void tst_SearchRun::relocationRingEnds()
{
    m_server->relocation("/", "/b");
    m_server->relocation("/b", "/");
    QVERIFY(searchToEnd());
    QCOMPARE(m_server->paths().size(), 20);
    QCOMPARE(urlsOf(m_list), urls({ "/b" }));
    QCOMPARE(item("/b").statusCode, 302);
    QCOMPARE(item("/b").zustand, Zustand::Fertig);
}

void tst_SearchRun::faultIsShownAndSearchGoesOn_data()
{
    QTest::addColumn<QByteArray>("bad");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("event");
    const QByteArray header = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n";
    const auto row = [](const char* title, const char* bad, const Answer& answer, FetchEvent event) {
        QTest::newRow(title) << QByteArray(bad) << answer << static_cast<int>(event);
    };
    row("closed before a byte", "/bad", { {} }, FetchEvent::EarlyDisconnect);
    row("closed inside the header", "/bad", { { header.chopped(2) } }, FetchEvent::EarlyDisconnect);
    row("bare line feeds", "/bad", { { "HTTP/1.1 200 OK\n\n" } }, FetchEvent::EarlyDisconnect);
    row("reset before a byte", "/bad", { {}, Afterwards::Reset }, FetchEvent::EarlyDisconnect);
    row("reset inside the header", "/bad", { { header.chopped(2) }, Afterwards::Reset }, FetchEvent::EarlyDisconnect);
    row("a header without end", "/bad", { { QByteArray(300 * 1024, 'x') }, Afterwards::Stall },
        FetchEvent::EarlyDisconnect);
    row("a header too long by one byte", "/bad", { { QByteArray(256 * 1024 + 1, 'x') + "\r\n\r\n" } },
        FetchEvent::EarlyDisconnect);
    row("nobody listens", "http://127.0.0.1:1/", {}, FetchEvent::SocketError);
    row("port 0", "http://127.0.0.1:/", {}, FetchEvent::SocketError);
    row("a port out of range", "http://127.0.0.1:70000/", {}, FetchEvent::SocketError);
    row("a host that cannot be", "http://h..invalid/", {}, FetchEvent::SocketError);
}

void tst_SearchRun::faultIsShownAndSearchGoesOn()
{
    QFETCH(QByteArray, bad);
    QFETCH(Answer, answer);
    QFETCH(int, event);
    m_server->page("/", "<a href='" + bad + "'><a href='good'>");
    m_server->script("/bad", answer);
    QVERIFY(searchToEnd());
    QCOMPARE(item("/good").statusCode, 404);
    const FundStück failed = m_list.getStart()->naechster->inhalt;
    QCOMPARE(failed.zustand, Zustand::Fehlgeschlagen);
    QCOMPARE(failed.statusCode, 0);
    QCOMPARE(static_cast<int>(eventsOf(failed.adresse).constLast()), event);
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

void tst_SearchRun::stopLeavesTheRestForContinue()
{
    m_server->page("/", "<a href='1'><a href='2'><a href='3'><a href='4'><a href='5'>");
    for (const char* path : { "/1", "/2", "/3" })
        m_server->script(path, { {}, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(m_server->paths().size(), 3);

    // Each of the two connections may begin one more fetch.
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->stopSearch();
    QVERIFY(!m_run->isSearching());
    QCOMPARE(item("/1").zustand, Zustand::Fehlgeschlagen);
    QCOMPARE(eventsOf("/2").constLast(), FetchEvent::EarlyDisconnect);
    QTRY_VERIFY(m_server->paths().contains("/3") && item("/4").zustand == Zustand::Fertig);
    QCOMPARE(item("/5").zustand, Zustand::NichtGeholt);

    // The connection that has run dry is there for the rest, while the other is still busy.
    m_run->continueSearch(m_options);
    QTRY_COMPARE(item("/5").zustand, Zustand::Fertig);
    QCOMPARE(finished.count(), 0);
    m_server->release("/3", okHeader("text/html") + "<a href='6'>");
    QVERIFY(finished.wait());
    QCOMPARE(item("/6").statusCode, 404);
    QCOMPARE(m_server->paths().count("/1"), 1);
}

void tst_SearchRun::stopHandsOnWhatAPageHeld()
{
    m_server->script("/", { { okHeader("text/html") + "<a href='1'><a href='2'><a hr" }, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(item("/").zustand, Zustand::LaedtHtml);
    m_run->stopSearch();
    QCOMPARE(urlsOf(m_list), urls({ "/", "/1", "/2" }));
    // Both connections may begin a fetch; neither is cut off before it has asked.
    QTRY_COMPARE(item("/1").zustand, Zustand::Fertig);
    QTRY_COMPARE(item("/2").zustand, Zustand::Fertig);
}

void tst_SearchRun::stopEndsAnalysis()
{
    m_server->page("/", "<a href='x'>" + QByteArray(8'000'000, '<') + "<a href='last'>");
    // Queued, the stop comes between the slice that found "x" and the next one.
    const auto stop = [this](const FundKnoten* knoten) {
        if (knoten->inhalt.tiefe == 1)
            m_run->stopSearch();
    };
    QObject context;
    connect(m_run.get(), &SearchRun::recorded, &context, stop, Qt::QueuedConnection);
    m_run->starteSuche(m_options);
    QTRY_VERIFY(!m_run->isSearching());

    QTimer eachPass;
    QSignalSpy passes(&eachPass, &QTimer::timeout);
    eachPass.start(0);
    QTRY_VERIFY(passes.count() >= 3);
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->continueSearch(m_options);
    QVERIFY(finished.count() == 1 || finished.wait());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/x" }));
}

void tst_SearchRun::abandonedFetchIsDoneByContinue()
{
    m_server->page("/", "<a href='1'><a href='2'>");
    m_server->script("/1", { {}, Afterwards::Stall });
    m_server->script("/2", { {}, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(m_server->paths().size(), 3);
    m_run->abandon();
    QCOMPARE(item("/1").zustand, Zustand::NichtGeholt);
    m_server->page("/1", "");
    m_server->page("/2", "");
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->continueSearch(m_options);
    QVERIFY(finished.wait());
    QCOMPARE(item("/1").statusCode, 200);
    QCOMPARE(item("/2").statusCode, 200);
}

void tst_SearchRun::continueWithNothingLeftFinishesOnce()
{
    QVERIFY(searchToEnd());
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->continueSearch(m_options);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_server->paths(), QByteArrayList { "/" });
}

void tst_SearchRun::newSearchDropsTheOld()
{
    m_server->page("/", "<a href='1'><a href='2'>");
    m_server->script("/1", { {}, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(m_server->paths().size(), 3);
    m_options.startUrl = url("/fresh");
    QSignalSpy cleared(m_run.get(), &SearchRun::cleared);
    QVERIFY(searchToEnd());
    QCOMPARE(cleared.count(), 1);
    QCOMPARE(urlsOf(m_list), urls({ "/fresh" }));
}

void tst_SearchRun::finishedMayStartAnother()
{
    m_server->page("/", "<a href='1'>");
    QByteArrayList found;
    connect(m_run.get(), &SearchRun::finished, this, [&] {
        found += urlsOf(m_list);
        if (m_options.startUrl == m_server->origin()) {
            m_options.startUrl = url("/fresh");
            m_run->starteSuche(m_options);
        }
    });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(found, urls({ "/", "/1", "/fresh" }));
    QVERIFY(!m_run->isSearching());
}

void tst_SearchRun::unsupportedStartUrlWaitsForStop()
{
    m_options.startUrl = "https://h/";
    m_run->starteSuche(m_options);
    QVERIFY(m_run->isSearching());
    QCOMPARE(eventsOf("https://h:80/"), QList { FetchEvent::UnsupportedProtocol });
    m_run->stopSearch();
    QVERIFY(!m_run->isSearching());
}

QTEST_GUILESS_MAIN(tst_SearchRun)
#include "tst_SearchRun.moc"
