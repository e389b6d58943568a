// SPDX-License-Identifier: GPL-3.0-or-later
// Do memory and handles stay flat? Searches and downloads from servers that fail at random, round after round with the
// same objects, and prints the memory, handles and threads that the program has between two rounds.
#include "base/folders.h"
#include "crawl/SearchRun.h"
#include "downloads/DownloadQueue.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "requests/RequestProfile.h"
#include "support/ScriptedServer.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <unistd.h>

#include <cstdio>
#include <memory>
#include <utility>

namespace {

constexpr int pathCount = 100;
constexpr qint64 roundMilliseconds = 500;
constexpr qint64 longestDownload = 4'000'000;

struct Usage {
    qint64 residentKiB = 0;
    /// Open files and sockets, without the one that each thread has to be woken by.
    qint64 handles = 0;
    /// The library looks up host names in threads of its own: up to 5, each started when the others are busy.
    qint64 threads = 0;
};

qint64 entryCount(const QString& folder)
{
    return QDir(folder).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

Usage usageNow()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    const QByteArray pages = statm.open(QFile::ReadOnly) ? statm.readAll().split(' ').value(1) : QByteArray();
    statm.close();
    const qint64 threads = entryCount(QStringLiteral("/proc/self/task"));
    const qint64 handles = entryCount(QStringLiteral("/proc/self/fd")) - threads;
    return { pages.toLongLong() * sysconf(_SC_PAGESIZE) / 1024, handles, threads };
}

Usage most(const Usage& a, const Usage& b)
{
    return { qMax(a.residentKiB, b.residentKiB), qMax(a.handles, b.handles), qMax(a.threads, b.threads) };
}

/// The site of a round: pages and files, sound and faulty.
class RandomSite {
public:
    explicit RandomSite(quint32 seed)
        : m_random(seed)
    {
    }

    /// A URL of the site, or sometimes one that leads nowhere.
    QByteArray anyUrl(const QByteArray& origin, const QByteArray& unaskedOrigin)
    {
        switch (m_random.bounded(40)) {
        case 0:
            return "http://127.0.0.1:1/refused" + anyNumber();
        case 1:
            return "http://127.0.0.1:70000/" + anyNumber();
        case 2:
            return "http://h..invalid/" + anyNumber();
        case 3:
            return unaskedOrigin + '/' + anyNumber();
        default:
            return origin + '/' + anyNumber();
        }
    }

    Answer anyAnswer(const QByteArray& origin, const QByteArray& unaskedOrigin)
    {
        const QByteArray whole = wholeAnswer(origin, unaskedOrigin);
        const QByteArray part = whole.first(m_random.bounded(static_cast<int>(whole.size()) + 1));
        switch (m_random.bounded(20)) {
        case 0:
            return { { part } };
        case 1:
            return { { part }, Afterwards::Reset };
        case 2:
            return { dripped(part.first(qMin<qsizetype>(part.size(), 300))), Afterwards::Reset };
        case 3:
            return { { whole, QByteArray(20'000, 'x') }, Afterwards::Repeat };
        case 4:
            return { { "HTTP/1.1 200 OK\r\n", QByteArray(20'000, 'x') }, Afterwards::Repeat };
        case 5:
            return m_random.bounded(16) == 0 ? Answer { { part }, Afterwards::Stall } : Answer();
        case 6:
            return { { rubbish() } };
        default:
            return { { whole } };
        }
    }

private:
    QByteArray anyNumber() { return QByteArray::number(m_random.bounded(pathCount)); }

    QByteArray wholeAnswer(const QByteArray& origin, const QByteArray& unaskedOrigin)
    {
        const QByteArray cookie = "Set-Cookie: c" + QByteArray::number(m_random.bounded(1000)) + "=1; path=/\r\n";
        switch (m_random.bounded(4)) {
        case 0:
            return "HTTP/1.1 302 Found\r\n" + cookie + "Location: " + anyUrl(origin, unaskedOrigin) + "\r\n\r\n";
        case 1: {
            const QByteArray body(m_random.bounded(200'000), 'x');
            const QByteArray length = QByteArray::number(body.size() + m_random.bounded(-1, 2));
            return "HTTP/1.1 200 OK\r\nContent-Length: " + length + "\r\n\r\n" + body;
        }
        default: {
            QByteArray body;
            for (int link = 0; link < 5; ++link)
                body += "<a href='" + anyUrl(origin, unaskedOrigin) + "'>";
            return "HTTP/1.1 200 OK\r\n" + cookie + "Content-Type: text/html\r\n\r\n" + body;
        }
        }
    }

    QByteArray rubbish()
    {
        QByteArray bytes(m_random.bounded(5000), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(m_random.bounded(256));
        return bytes;
    }

    QRandomGenerator m_random;
};

class Soak final : public QObject {
public:
    Soak(qint64 seconds, quint32 seed)
        : m_milliseconds(seconds * 1000)
        , m_site(seed)
        , m_extras(m_prefs, m_cookies, m_web)
        , m_run(m_list, m_extras, m_connections)
        , m_queue(m_extras, m_connections)
    {
        m_prefs.useCookies = true;
        m_cookies.setCookieFolder(m_folder.filePath(QStringLiteral("cookies")));
        m_run.setBodyLimit(500'000);
        m_queue.settings().target = allgemein::withTrailingSeparator(m_folder.filePath(QStringLiteral("target")));
        m_queue.settings().overwrite = true;
        m_queue.settings().maxDL = DownloadSettings::mostSlots;
        connect(&m_run, &SearchRun::recorded, this, [this] { ++m_items; });
        connect(&m_queue, &DownloadQueue::ended, this, [this] { ++m_downloads; });
        // Queued, since a transfer must not be stopped while it emits a signal.
        connect(&m_queue, &DownloadQueue::changed, this, &Soak::stopIfLong, Qt::QueuedConnection);
        connect(&m_tick, &QTimer::timeout, this, &Soak::onTick);
    }

    void start()
    {
        std::printf("%8s %13s %8s %8s %8s %10s %10s\n", "seconds", "resident KiB", "handles", "threads", "rounds",
            "items", "downloads");
        m_clock.start();
        m_tick.start(10);
        beginRound();
    }

private:
    void beginRound()
    {
        m_server = std::make_unique<ScriptedServer>();
        m_unasked = std::make_unique<ScriptedServer>();
        const QByteArray origin = m_server->origin();
        const QByteArray unasked = m_unasked->origin();
        m_unasked->answerUnasked(m_site.anyAnswer(origin, unasked));
        for (int path = 0; path < pathCount; ++path)
            m_server->script('/' + QByteArray::number(path), m_site.anyAnswer(origin, unasked));
        QByteArray links;
        for (int link = 0; link < pathCount; ++link)
            links += "<a href='" + m_site.anyUrl(origin, unasked) + "'>";
        m_server->page("/", links);

        SearchOptions options;
        options.startUrl = origin;
        options.maxDepth = false;
        m_run.starteSuche(options);
        for (int count = 0; count < pathCount / 2; ++count)
            m_queue.addDL(m_site.anyUrl(origin, unasked), -1, origin);
        m_roundClock.start();
    }

    void onTick()
    {
        const bool busy = m_run.isSearching() || m_queue.runningCount() + m_queue.waitingCount() > 0;
        if (!m_roundEnds && (!busy || m_roundClock.elapsed() > roundMilliseconds))
            endRound();
        else if (m_roundEnds)
            measure(); // Objects that the end of the round deletes later have been freed since the last tick.
    }

    void endRound()
    {
        m_run.stopSearch();
        m_run.leereSuche();
        m_queue.remove({ { 0, m_queue.count() - 1 } });
        m_server.reset();
        m_unasked.reset();
        QDir(m_queue.settings().target).removeRecursively();
        m_roundEnds = true;
        ++m_rounds;
    }

    void measure()
    {
        m_roundEnds = false;
        m_peak = most(m_peak, usageNow());
        const qint64 interval = m_milliseconds / 20;
        if (m_clock.elapsed() >= (m_intervals + 1) * interval)
            tell();
        if (m_clock.elapsed() >= m_milliseconds)
            judge();
        else
            beginRound();
    }

    /// Prints the highest usage between two rounds of the interval that ends now.
    void tell()
    {
        std::printf("%8lld %13lld %8lld %8lld %8lld %10lld %10lld\n", m_clock.elapsed() / 1000, m_peak.residentKiB,
            m_peak.handles, m_peak.threads, m_rounds, m_items, m_downloads);
        std::fflush(stdout);
        ++m_intervals;
        // The first tenth of the time is for warming up: a minute of ten.
        Usage& phase = m_intervals <= 2 ? m_warm : m_later;
        phase = most(phase, m_peak);
        m_last = std::exchange(m_peak, {});
    }

    void judge()
    {
        constexpr qint64 memoryBound = 4096;
        constexpr qint64 threadBound = 1 + 5;
        const qint64 memory = m_last.residentKiB - m_warm.residentKiB;
        const qint64 handles = m_later.handles - m_warm.handles;
        const qint64 threads = m_later.threads;
        const bool flat = memory <= memoryBound && handles <= 0 && threads <= threadBound;
        std::printf("%s: memory %+lld KiB (bound %lld) and handles %+lld (bound 0) since the first tenth, "
                    "%lld threads (bound %lld)\n",
            flat ? "flat" : "NOT FLAT", memory, memoryBound, handles, threads, threadBound);
        QCoreApplication::exit(flat ? 0 : 1);
    }

    void stopIfLong(quint64 id)
    {
        const int row = m_queue.rowOf(id);
        const bool there = row < m_queue.count() && m_queue.entryAt(row).id == id;
        if (there && m_queue.isRunning(id) && m_queue.entryAt(row).received.value_or(0) > longestDownload)
            m_queue.stop({ { row, row } });
    }

    const qint64 m_milliseconds;
    const QTemporaryDir m_folder;
    RandomSite m_site;
    RequestPrefs m_prefs;
    CookieStore m_cookies;
    RequestProfile m_extras;
    WebRules m_web;
    Connections m_connections { m_web };
    FundListe m_list;
    SearchRun m_run;
    DownloadQueue m_queue;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<ScriptedServer> m_unasked;
    QTimer m_tick;
    QElapsedTimer m_clock;
    QElapsedTimer m_roundClock;
    bool m_roundEnds = false;
    qint64 m_rounds = 0;
    qint64 m_items = 0;
    qint64 m_downloads = 0;
    qint64 m_intervals = 0;
    Usage m_peak;
    Usage m_warm;
    Usage m_later;
    Usage m_last;
};

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const qint64 seconds = arguments.value(1, QStringLiteral("600")).toLongLong();
    const QString given = arguments.value(2);
    const quint32 seed = given.isEmpty() ? QRandomGenerator::global()->generate() : given.toUInt();
    if (seconds < 1) {
        std::fprintf(stderr, "usage: bench/soak [SECONDS [SEED]]\n");
        return 2;
    }
    std::printf("seed %u\n", seed);
    Soak soak(seconds, seed);
    soak.start();
    return QCoreApplication::exec();
}
