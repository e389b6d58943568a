// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SearchFixture.h"

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
    const QByteArray longest = m_server->origin() + '/' + QByteArray(64 * 1024 - m_server->origin().size() - 1, 'x');
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
    QCOMPARE(m_list.getLetzter()->inhalt.zustand, Zustand::Fehlgeschlagen);
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
    QVERIFY(continueToEnd());
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
