// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/folders.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "downloads/EntryText.h"
#include "results/twk.h"
#include "support/SearchFixture.h"
#include "support/Table.h"
#include "support/Wine.h"

#include <QTemporaryDir>

#include <algorithm>

/// Faults of servers, in a search and in a download. Each fault is reported correctly, the next item is fetched, the
/// work ends, and no connection stays open.
class tst_Faults : public SearchFixture {
    Q_OBJECT

private slots:
    void init();
    void searchGoesOn_data() { faults(); }
    void searchGoesOn();
    void downloadsGoOn_data() { faults(); }
    void downloadsGoOn();
    void silentServersAreGivenUp();
    void relocationsEnd_data();
    void relocationsEnd();

private:
    static void faults();
    /// Makes `server` answer as the data row says. Returns the URL of the faulty answer.
    static QByteArray faultAt(ScriptedServer& server);
    [[nodiscard]] QString toldOf(const FundStück& item, const ScriptedServer& server) const;
    [[nodiscard]] static QString toldOf(const DownloadEntry& entry);
};

void tst_Faults::init()
{
    SearchFixture::init();
    static const QByteArrayList beyondWine { "reset before it is asked", "reset when it is asked",
        "answered before it is asked", "a page without end", "a file without end" };
    if (isOnWine() && beyondWine.contains(QTest::currentDataTag()))
        QSKIP("Wine does not report a reset before a byte is read, nor any event while bytes arrive without end.");
}

/// The column "search" is the expected fetch state of the item, with the failure's text or the status, the size and
/// whether the page's link was found. The column "download" is the expected tag and text of the entry, and "file" the
/// expected content. A download with the tag "V" runs until the test stops it.
void tst_Faults::faults()
{
    // An empty URL stands for the test server with the given answer.
    const auto add = table<QByteArray, Answer, bool, QString, QString, QByteArray>(
        "url", "answer", "unasked", "search", "download", "file");

    const auto nowhere = [add](const char* title, const QByteArray& url, int number) {
        add(title, url, {}, false, QStringLiteral("5: Network failure: %1:").arg(number),
            QStringLiteral("F: Network failure"), {});
    };
    nowhere("nobody listens", "http://127.0.0.1:1/f", QAbstractSocket::ConnectionRefusedError);
    nowhere("port 0", "http://127.0.0.1:0/f", QAbstractSocket::SocketAddressNotAvailableError);
    nowhere("no port behind the colon", "http://127.0.0.1:/f", QAbstractSocket::SocketAddressNotAvailableError);
    nowhere("a negative port", "http://127.0.0.1:-80/f", QAbstractSocket::SocketAddressNotAvailableError);
    nowhere("a port beyond 16 bits", "http://127.0.0.1:65616/f", QAbstractSocket::SocketAddressNotAvailableError);
    nowhere("a port beyond 64 bits", "http://127.0.0.1:99999999999999999999/f",
        QAbstractSocket::SocketAddressNotAvailableError);
    // Neither name reaches the network: the first is no host name, the second is too long for a query.
    nowhere("a host that cannot be", "http://h..invalid/f", QAbstractSocket::HostNotFoundError);
    nowhere("a host that does not resolve", "http://" + QByteArray(QByteArray(60, 'h') + '.').repeated(5) + "invalid/f",
        QAbstractSocket::HostNotFoundError);

    const auto row = [add](const QByteArray& title, const Answer& answer, const char* search, const char* download,
                         const QByteArray& file = {}, bool unasked = false) {
        add(title, {}, answer, unasked, QString::fromLatin1(search), QString::fromLatin1(download), file);
    };
    const auto early = [row](const char* title, const Answer& answer, bool unasked = false) {
        row(title, answer, "5: Prematurely disconnected", "F: Prematurely disconnected", {}, unasked);
    };
    const char* const complete = "C: Finished";
    const char* const tooShort = "S: Disconnected before file seemed to be complete.";
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray html = ok + "Content-Type: text/html\r\n";
    const QByteArray link = "<a href='/found'>";
    const QByteArray header = html + "Content-Length: 17\r\n\r\n";
    const QByteArray page = header + link;

    early("closed before it is asked", {}, true);
    early("reset before it is asked", { {}, Afterwards::Reset }, true);
    early("closed when it is asked", {});
    early("reset when it is asked", { {}, Afterwards::Reset });
    early("reset in the header", { { html }, Afterwards::Reset });
    row("silent", { {}, Afterwards::Stall }, "5: Prematurely disconnected", "V: Requesting");
    row("silent in the header", { { html }, Afterwards::Stall }, "5: Prematurely disconnected", "V: Requesting");
    row("answered before it is asked", { { page } }, "3: 200, 17, found", complete, link, true);
    row("a byte at a time", { dripped(page) }, "3: 200, 17, found", complete, link);
    for (qsizetype size = 1; size < page.size(); ++size) {
        const QByteArray title = "closed behind byte " + QByteArray::number(size);
        if (size < header.size())
            early(title.constData(), { { page.first(size) } });
        else
            row(title, { { page.first(size) } }, "3: 200, 17", tooShort, page.first(size).sliced(header.size()));
    }
    row("reset behind the header", { { header }, Afterwards::Reset }, "3: 200, 17", tooShort);
    row("reset in the body", { { header, link, "<a " }, Afterwards::Reset }, "3: 200, 17, found", tooShort, link + '<');
    row("silent behind the header", { { header }, Afterwards::Stall }, "3: 200, 17", "V: Loading");
    row("silent in the body", { { header + "<a " }, Afterwards::Stall }, "3: 200, 17", "V: Loading", "<a ");
    row("left open behind the body", { { page }, Afterwards::Stall }, "3: 200, 17, found", complete, link);

    early("a header without end", { { ok, QByteArray(10'000, 'x') }, Afterwards::Repeat });
    early("header lines without end", { { ok, QByteArray("X: y\r\n").repeated(1000) }, Afterwards::Repeat });
    early("a header too long by one byte", { { QByteArray(256 * 1024 + 1, 'x') + "\r\n\r\n" } });
    row("a header of just the limit, its end cut",
        { { ok + "X: " + QByteArray(256 * 1024 - 20, 'x') + "\r\n", "\r", "\n" } }, "4: 200, -1", complete);
    row("a page without end", { { html + "\r\n" + link, QByteArray(60'000, 'x') }, Afterwards::Repeat },
        "3: 200, -1, found", "V: Loading", link + QByteArray(3'000'000, 'x'));
    row("a file without end", { { ok + "\r\n", QByteArray(60'000, 'x') }, Afterwards::Repeat }, "4: 200, -1",
        "V: Loading", QByteArray(3'000'000, 'x'));

    row("more than was announced without end", { { header + link, QByteArray(60'000, 'x') }, Afterwards::Repeat },
        "3: 200, 17, found", tooShort, link + 'x');

    // With more bytes than announced, the file has the first of those too many.
    const auto length = [&](const char* title, const QByteArray& value, const char* search, const char* download,
                            qsizetype bytes = 17) {
        row(title, { { html + "Content-Length: " + value + "\r\n\r\n" + link } }, search, download, link.first(bytes));
    };
    length("a length too large", "18", "3: 200, 18, found", tooShort);
    length("a length too small", "16", "3: 200, 16, found", tooShort);
    length("a length beyond 4 GiB", "4294967313", "3: 200, 4294967313, found", tooShort);
    length("a length beyond 64 bits", "18446744073709551633", "3: 200, 0, found", tooShort, 1);
    length("a negative length", "-17", "3: 200, -17, found", tooShort);
    length("a length that is no number", "x", "3: 200, 0, found", tooShort, 1);
    length("the first of two lengths fits", "17\r\nContent-Length: 3", "3: 200, 17, found", complete);
    length("the second of two lengths fits", "3\r\nContent-Length: 17", "3: 200, 3, found", tooShort, 4);
    row("no length", { { html + "\r\n" + link } }, "3: 200, -1, found", tooShort, link);
    row("no length, no body", { { html + "\r\n" } }, "3: 200, -1", complete);

    QByteArray rubbish;
    // Longer than one write, and without repetition, so that a lost or doubled piece is noticed.
    for (int number = 0; number < 100'000; ++number)
        rubbish += static_cast<char>(number % 257);
    early("rubbish", { { rubbish } });
    row("rubbish around a blank line", { { rubbish + "\r\n\r\n" + rubbish } }, "4: 0, -1", tooShort, rubbish);
    row("NUL and bytes beyond ASCII in the header",
        { { ok + QByteArrayLiteral("X\0\xE4: \xFF\r\n\0\r\nContent-Type: text/html\r\n\r\n") + link } },
        "3: 200, -1, found", tooShort, link);
    row("nothing but a blank line", { { "\r\n\r\n" } }, "4: 0, -1", complete);
    early("a body alone", { { link } });
    early("a header of bare line feeds", { { QByteArray(page).replace('\r', "") } });
    // The first header counts: the program never asks for an interim answer.
    row("a status 100 in front", { { "HTTP/1.1 100 Continue\r\n\r\n" + page } }, "4: 100, -1", tooShort, page);
    row("a refusal is a file too", { { "HTTP/1.1 404 No\r\nContent-Length: 2\r\n\r\nno" } }, "4: 404, 2", complete,
        "no");
    row("a 303 is an answer", { { "HTTP/1.1 303 See\r\nLocation: /found\r\nContent-Length: 1\r\n\r\n." } }, "4: 303, 1",
        complete, ".");
    row("relocated", { { "HTTP/1.1 302 Found\r\nLocation: /found\r\n\r\n" + link } }, "6: Relocated: /found",
        "F: Relocated");
}

QByteArray tst_Faults::faultAt(ScriptedServer& server)
{
    QFETCH(QByteArray, url);
    QFETCH(Answer, answer);
    QFETCH(bool, unasked);
    server.script("/f", answer);
    if (unasked)
        server.answerUnasked(answer);
    return url.isEmpty() ? server.origin() + "/f" : url;
}

QString tst_Faults::toldOf(const FundStück& item, const ScriptedServer& server) const
{
    const QString state = QString::number(static_cast<int>(item.zustand)) + QLatin1String(": ");
    if (item.zustand == FetchState::Failed || item.zustand == FetchState::Relocated) {
        const auto last = std::find_if(
            m_reports.rbegin(), m_reports.rend(), [&item](const auto& report) { return report.first == item.adresse; });
        return state + twk::stateText(last->second, LanguageTable());
    }
    const bool found = m_list.istBekannt(server.origin() + "/found");
    return state + QStringLiteral("%1, %2").arg(item.statusCode).arg(item.groesse)
        + QLatin1String(found ? ", found" : "");
}

QString tst_Faults::toldOf(const DownloadEntry& entry)
{
    return QString::fromLatin1(letterOf(entry.tag)) + QLatin1String(": ") + entryText::status(entry, LanguageTable());
}

void tst_Faults::searchGoesOn()
{
    QFETCH(Answer, answer);
    QFETCH(QString, search);
    QFETCH(QString, download);
    ScriptedServer server;
    m_server->page("/", "<a href='" + faultAt(server) + "'><a href='good'>");
    m_run->setBodyLimit(1'000'000);
    QSignalSpy recorded(m_run.get(), &SearchRun::recorded);
    QSignalSpy finished(m_run.get(), &SearchRun::finished);
    m_run->starteSuche(m_options);
    QTRY_COMPARE(item("/good").statusCode, 404);
    const FundStück& bad = recorded[1][0].value<FundKnoten*>()->inhalt;
    QString told;
    if (answer.afterwards == Afterwards::Stall && download.startsWith(u'V')) {
        QTRY_COMPARE(bad.zustand, search.startsWith(u'3') ? FetchState::ReadingPage : FetchState::Requested);
        m_run->stopSearch();
        told = toldOf(bad, server);
        // A search that is continued fetches again what the stop has cut short.
        server.script("/f", { { "HTTP/1.1 200 OK\r\n\r\n" } });
        m_run->continueSearch(m_options);
    }
    QTRY_COMPARE(finished.count(), 1);
    if (told.isEmpty())
        told = toldOf(bad, server);
    // The system's own words differ between systems, so only the beginning is compared.
    QCOMPARE(search.endsWith(u':') ? told.left(search.size()) : told, search);
    QTRY_COMPARE(server.connectionCount() + m_server->connectionCount(), 0);
    QTRY_VERIFY(m_run->children().isEmpty());
}

void tst_Faults::downloadsGoOn()
{
    QFETCH(QString, download);
    QFETCH(QByteArray, file);
    ScriptedServer server;
    const QTemporaryDir folder;
    DownloadQueue queue(m_extras, m_connections);
    queue.settings().target = allgemein::withTrailingSeparator(folder.path());
    queue.settings().maxDL = 1;
    QSignalSpy ended(&queue, &DownloadQueue::ended);
    QSignalSpy idle(&queue, &DownloadQueue::idle);
    queue.addDL(faultAt(server), -1, {});
    queue.addDL(url("/good"), -1, {});
    const DownloadEntry& bad = queue.entryAt(0);
    const bool untilStopped = download.startsWith(u'V');
    if (untilStopped) {
        QTRY_VERIFY(toldOf(bad).startsWith(download) && bad.received.value_or(0) >= file.size());
        queue.stop({ { 0, 0 } });
    }
    QTRY_COMPARE(idle.count(), 1);
    QCOMPARE(ended.count(), untilStopped ? 1 : 2);
    QCOMPARE(toldOf(bad), untilStopped ? QStringLiteral("V: Prematurely disconnected") : download);
    const QByteArray content = bad.target.isEmpty() ? QByteArray() : contentOf(bad.target);
    QCOMPARE(content.size(), bad.received.value_or(0));
    QCOMPARE(untilStopped ? content.left(file.size()) : content, file);
    QCOMPARE(toldOf(queue.entryAt(1)), QStringLiteral("C: Finished"));
    QTRY_COMPARE(server.connectionCount() + m_server->connectionCount(), 0);
    QTRY_VERIFY(queue.children().isEmpty());
}

/// With a time limit, a silent server ends the fetch: as a failure before its header is whole, and behind that with
/// what has come.
void tst_Faults::silentServersAreGivenUp()
{
    m_web.silenceLimit = std::chrono::seconds(1);
    const QByteArray ok = okHeader("text/html");
    m_server->page("/", "<a href='silent'><a href='header'><a href='body'>");
    m_server->script("/silent", { {}, Afterwards::Stall });
    m_server->script("/header", { { ok.chopped(2) }, Afterwards::Stall });
    m_server->script("/body", { { ok + "<a href='found'><a" }, Afterwards::Stall });
    QVERIFY(searchToEnd());
    const auto told = [this](const char* path) {
        return toldOf(item(path), *m_server);
    };
    QCOMPARE(told("/silent"), QStringLiteral("5: Network failure: 5:No byte came for 1 s"));
    QCOMPARE(told("/header"), told("/silent"));
    QCOMPARE(told("/body"), QStringLiteral("3: 200, -1, found"));

    const QTemporaryDir folder;
    DownloadQueue queue(m_extras, m_connections);
    queue.settings().target = allgemein::withTrailingSeparator(folder.path());
    QSignalSpy idle(&queue, &DownloadQueue::idle);
    for (const char* path : { "/silent", "/body" })
        queue.addDL(url(path), -1, {});
    QTRY_COMPARE(idle.count(), 1);
    QCOMPARE(toldOf(queue.entryAt(0)), QStringLiteral("F: Network failure"));
    QCOMPARE(toldOf(queue.entryAt(1)), QStringLiteral("S: Disconnected before file seemed to be complete."));
}

void tst_Faults::relocationsEnd_data()
{
    const auto row = table<int>("length");
    row("a ring of two", 2);
    row("a ring of nineteen", 19);
    row("a thousand in a row", 1000);
}

void tst_Faults::relocationsEnd()
{
    QFETCH(int, length);
    for (int place = 0; place < length; ++place) {
        m_server->relocation('/' + QByteArray::number(place), '/' + QByteArray::number((place + 1) % length));
    }
    m_options.startUrl = url("/0");
    QVERIFY(searchToEnd());
    QCOMPARE(m_server->paths().size(), 20);
    const QByteArray last = '/' + QByteArray::number(19 % length);
    QCOMPARE(urlsOf(m_list), urls({ last }));
    QCOMPARE(item(last).statusCode, 302);
    QCOMPARE(item(last).zustand, FetchState::Finished);
}

QTEST_GUILESS_MAIN(tst_Faults)
#include "tst_Faults.moc"
