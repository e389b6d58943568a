// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SearchFixture.h"

class tst_SearchStop : public SearchFixture {
    Q_OBJECT

private slots:
    void stopLeavesTheRestForContinue();
    void stopHandsOnWhatAPageHeld();
    void stopEndsAnalysis();
    void abandonedFetchIsDoneByContinue();
    void continueWithNothingLeftFinishesOnce();
    void newSearchDropsTheOld();
    void finishedMayStartAnother();
    void unsupportedStartUrlWaitsForStop();
};

void tst_SearchStop::stopLeavesTheRestForContinue()
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

void tst_SearchStop::stopHandsOnWhatAPageHeld()
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

void tst_SearchStop::stopEndsAnalysis()
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

void tst_SearchStop::abandonedFetchIsDoneByContinue()
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

void tst_SearchStop::continueWithNothingLeftFinishesOnce()
{
    QVERIFY(searchToEnd());
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->continueSearch(m_options);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_server->paths(), QByteArrayList { "/" });
}

void tst_SearchStop::newSearchDropsTheOld()
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

void tst_SearchStop::finishedMayStartAnother()
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

void tst_SearchStop::unsupportedStartUrlWaitsForStop()
{
    m_options.startUrl = "https://h/";
    m_run->starteSuche(m_options);
    QVERIFY(m_run->isSearching());
    QCOMPARE(eventsOf("https://h:80/"), QList { FetchEvent::UnsupportedProtocol });
    m_run->stopSearch();
    QVERIFY(!m_run->isSearching());
}

QTEST_GUILESS_MAIN(tst_SearchStop)
#include "tst_SearchStop.moc"
