// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SearchFixture.h"
#include "support/Table.h"

/// What a search does. What it makes of the many forms of pages and answers is judged by the independent walk.
class tst_SearchRun : public SearchFixture {
    Q_OBJECT

private slots:
    void takesTheFirstCookieOfAnAnswer();
    void recordsUrlsUpToTheirLimit();
    void relocationAtTheEndOfTheListLosesNothing();
    void manyFailuresDoNotNest();
    void stopLeavesTheRestForContinue();
    void stopHandsOnWhatAPageHeld();
    void stopEndsAnalysis();
    void limitsStopTheSearch_data();
    void limitsStopTheSearch();
    void abandonedFetchIsDoneByContinue();
    void continueWithNothingLeftFinishesOnce();
    void newSearchDropsTheOld();
    void finishedMayStartAnother();
    void unsupportedStartUrlWaitsForStop();

private:
    [[nodiscard]] bool continueToEnd();
};

void tst_SearchRun::takesTheFirstCookieOfAnAnswer()
{
    m_server->script(
        "/", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\nContent-Type: text/html\r\n\r\n<a href='x'>" } });
    // A relocation without a place leads to the directory, which is the page.
    m_server->script("/x", { { "HTTP/1.1 302 Found\r\nSet-Cookie: b=2;\r\nSet-Cookie: c=3;\r\n\r\n" } });
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/" }));
    QCOMPARE(m_extras.takenCookies, (QByteArrayList { "a=1; path=/", "b=2;" }));
    QCOMPARE(eventsOf("/"), (QList { FetchEvent::Connecting, FetchEvent::Requesting }));
}

void tst_SearchRun::recordsUrlsUpToTheirLimit()
{
    const QByteArray longest = m_server->origin() + '/' + QByteArray(8 * 1024 - m_server->origin().size() - 1, 'x');
    m_server->page("/", "<a href='" + longest + "'><a href='" + longest + "x'>");
    QVERIFY(searchToEnd());
    QCOMPARE(urlsOf(m_list), (QByteArrayList { url("/"), longest }));
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
    QCOMPARE(m_list.getLetzter()->inhalt.zustand, FetchState::Failed);
    // Every item has its reason, and equal ones are kept once.
    const FetchReport* const reason = m_list.getLetzter()->inhalt.reason;
    QVERIFY(reason && reason->failure == (ExchangeFailure { ExchangeFailure::BadPort, 0 }));
    QCOMPARE(item("/").reason, nullptr);
    QCOMPARE(m_list.getStart()->naechster()->inhalt.reason, reason);
}

bool tst_SearchRun::continueToEnd()
{
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->continueSearch(m_options);
    return finished.count() == 1 || finished.wait();
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
    QCOMPARE(item("/1").zustand, FetchState::Failed);
    QCOMPARE(eventsOf("/2").constLast(), FetchEvent::EarlyDisconnect);
    QCOMPARE(item("/2").reason->event, FetchEvent::EarlyDisconnect);
    QTRY_VERIFY(m_server->paths().contains("/3") && item("/4").zustand == FetchState::Finished);
    QCOMPARE(item("/5").zustand, FetchState::NotFetched);
    for (const char* path : { "/1", "/2", "/3" }) // closed by the stop, and begun by it
        QCOMPARE(item(path).keptState(), FetchState::NotFetched);

    // The connection that has run dry fetches the rest and what was closed, while the other is still busy.
    m_server->page("/1", "<a href='x'>");
    m_server->page("/2", "");
    m_run->continueSearch(m_options);
    QTRY_COMPARE(item("/5").zustand, FetchState::Finished);
    QCOMPARE(finished.count(), 0);
    m_server->release("/3", okHeader("text/html") + "<a href='6'>");
    QVERIFY(finished.wait());
    QCOMPARE(item("/6").statusCode, 404);
    QCOMPARE(item("/x").statusCode, 404);
    for (const char* path : { "/1", "/2", "/3" })
        QCOMPARE(item(path).keptState(), FetchState::ReadingPage);
    QCOMPARE(m_server->paths().count("/3"), 1);
    QCOMPARE(m_server->paths().count("/4"), 1);
}

void tst_SearchRun::stopHandsOnWhatAPageHeld()
{
    m_server->script("/", { { okHeader("text/html") + "<a href='1'><a href='2'><a hr" }, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(item("/").zustand, FetchState::ReadingPage);
    m_run->stopSearch();
    QCOMPARE(urlsOf(m_list), urls({ "/", "/1", "/2" }));
    // Both connections may begin a fetch; neither is cut off before it has asked.
    QTRY_COMPARE(item("/1").zustand, FetchState::Finished);
    QTRY_COMPARE(item("/2").zustand, FetchState::Finished);
    // Of the page only a part was read.
    m_server->page("/", "<a href='1'><a href='2'><a href='3'>");
    QVERIFY(continueToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/1", "/2", "/3" }));
}

void tst_SearchRun::stopEndsAnalysis()
{
    m_server->page("/", "<a href='x'>" + QByteArray(8'000'000, '<') + "<a href='last'>");
    // Queued, the stop comes between the slice that found "x" and the next one.
    const auto stop = [this](const FundKnoten* node) {
        if (node->inhalt.tiefe == 1)
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
    QCOMPARE(urlsOf(m_list), urls({ "/", "/x" }));
    QVERIFY(m_run->disconnect(&context));
    QVERIFY(continueToEnd());
    QCOMPARE(urlsOf(m_list), urls({ "/", "/x", "/last" }));
}

void tst_SearchRun::limitsStopTheSearch_data()
{
    const auto row = table<SearchLimits, SearchLimit>("limits", "limit");
    row("of items", { 3, SearchLimits().bytes }, SearchLimit::Items);
    row("of bytes", { SearchLimits().items, 1000 }, SearchLimit::Bytes);
}

void tst_SearchRun::limitsStopTheSearch()
{
    QFETCH(SearchLimits, limits);
    m_run->setLimits(limits);
    QByteArray body;
    for (int number = 0; number < 100; ++number)
        body += "<a href='" + QByteArray::number(number) + "'>";
    m_server->page("/", body);
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    QSignalSpy limitReached(m_run.get(), &SearchRun::limitReached);
    m_run->starteSuche(m_options);
    QTRY_COMPARE(limitReached.count(), 1);
    QTEST(limitReached.first().first().value<SearchLimit>(), "limit");
    QVERIFY(!m_run->isSearching());
    QCOMPARE(finished.count(), 0);
    QVERIFY(m_list.getAnzahl() >= 3 && m_list.getAnzahl() < 20);
    m_run->setLimits({});
    QVERIFY(continueToEnd());
    QCOMPARE(m_list.getAnzahl(), 101);
}

void tst_SearchRun::abandonedFetchIsDoneByContinue()
{
    m_server->page("/", "<a href='1'><a href='2'>");
    m_server->script("/1", { {}, Afterwards::Stall });
    m_server->script("/2", { {}, Afterwards::Stall });
    m_run->starteSuche(m_options);
    QTRY_COMPARE(m_server->paths().size(), 3);
    m_run->abandon();
    QCOMPARE(item("/1").zustand, FetchState::NotFetched);
    m_server->page("/1", "");
    m_server->page("/2", "");
    QVERIFY(continueToEnd());
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
