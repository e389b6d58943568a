// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/folders.h"
#include "base/lang.h"
#include "downloads/DownloadQueue.h"
#include "downloads/EntryText.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/FileSizeLimit.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <map>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

class tst_DownloadQueue : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void replacesOnlyWhenAsked();
    void reportsWhatCannotBeCreated();
    void aFullDiskIsAFailure();
    void writesOnlyToOrdinaryFiles();
    void aRelocatedEntryIsQueuedForItsNewAddress();
    void addsEachUrlOnce();
    void entriesWaitUntilTheyAreQueued();
    void aRunningEntryBeginsAnew();
    void aStoppedEntryOwnsItsPart();
    void aFinishedEntryStaysFinished();
    void twoEntriesNeverWriteOneFile();
    void nothingLosesItsSlot();
    void showsProgress_data();
    void showsProgress();

private:
    [[nodiscard]] QByteArray url(const QByteArray& path) const { return m_server->origin() + path; }
    void add(const QByteArray& path) { m_queue->addDL(url(path), -1, {}); }
    /// One letter for each entry: its tag, or "." for none.
    [[nodiscard]] QByteArray tags() const;
    [[nodiscard]] QString statusText(int row) const
    {
        return entryText::status(m_queue->entryAt(row), LanguageTable());
    }
    [[nodiscard]] QString target(const char* name) const
    {
        return m_queue->settings().target + QString::fromLatin1(name);
    }
    /// Starts a download of five bytes of many, then stops it.
    void stopInTheMiddle(const QByteArray& path);
    [[nodiscard]] bool isIdle() const { return m_queue->runningCount() + m_queue->waitingCount() == 0; }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedServer> m_server;
    PlainExtras m_extras;
    WebRules m_web;
    Connections m_connections { m_web };
    std::unique_ptr<DownloadQueue> m_queue;
};

void tst_DownloadQueue::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_server = std::make_unique<ScriptedServer>();
    m_extras = {};
    m_queue = std::make_unique<DownloadQueue>(m_extras, m_connections);
    m_queue->settings().target = allgemein::withTrailingSeparator(m_folder->filePath(QStringLiteral("target")));
}

void tst_DownloadQueue::cleanup()
{
    m_queue.reset();
    m_server.reset();
}

QByteArray tst_DownloadQueue::tags() const
{
    QByteArray letters;
    for (int row = 0; row < m_queue->count(); ++row) {
        const QByteArray letter = letterOf(m_queue->entryAt(row).tag);
        letters += letter.isEmpty() ? "." : letter;
    }
    return letters;
}

void tst_DownloadQueue::replacesOnlyWhenAsked()
{
    m_server->script("/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nnew" } });
    const QString file = m_folder->filePath(QStringLiteral("target/f"));
    QVERIFY(QDir().mkpath(m_queue->settings().target) && writeFile(file, "the old one"));
    add("/f");
    QTRY_COMPARE(tags(), "F");
    QCOMPARE(statusText(0), QStringLiteral("File already exists"));
    QCOMPARE(contentOf(file), "the old one");
    m_queue->settings().overwrite = true;
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(tags(), "C");
    QCOMPARE(contentOf(file), "new");
}

void tst_DownloadQueue::reportsWhatCannotBeCreated()
{
    m_server->script("/a/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n" } });
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("file")), "x"));
    m_queue->settings().target = m_folder->filePath(QStringLiteral("file/in/it/"));
    add("/a/f");
    QTRY_COMPARE(tags(), "F");
    QCOMPARE(statusText(0), QStringLiteral("Error while creating directory."));
    m_queue->settings().target = allgemein::withTrailingSeparator(m_folder->path());
    add('/' + QByteArray(300, 'n'));
    QTRY_COMPARE(tags(), "FF");
    QCOMPARE(statusText(1), QStringLiteral("Error while creating file"));
}

void tst_DownloadQueue::aFullDiskIsAFailure()
{
#ifdef Q_OS_UNIX
    m_server->script("/full", { { "HTTP/1.1 200 OK\r\nContent-Length: 50000\r\n\r\n" + QByteArray(50'000, 'x') } });
    m_server->script("/next", { { "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n" } });
    m_queue->settings().maxDL = 1;
    const FileSizeLimit limit(40'000);
    add("/full");
    add("/next");
    QTRY_COMPARE(tags(), "FC");
    QCOMPARE(statusText(0), QStringLiteral("Error while writing file"));
#else
    QSKIP("Only Unix can limit the size of files for a test.");
#endif
}

void tst_DownloadQueue::writesOnlyToOrdinaryFiles()
{
#ifdef Q_OS_UNIX
    // Opening a pipe for writing would block the program until somebody reads from it.
    m_server->script("/pipe", { { "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n." } });
    m_server->script("/folder", { { "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n." } });
    QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("target/folder"))));
    QCOMPARE(mkfifo(qPrintable(m_folder->filePath(QStringLiteral("target/pipe"))), 0600), 0);
    m_queue->settings().overwrite = true;
    add("/pipe");
    add("/folder");
    QTRY_COMPARE(tags(), "FF");
    QCOMPARE(statusText(0), QStringLiteral("Error while creating file"));
#else
    QSKIP("Only Unix has pipes in folders.");
#endif
}

void tst_DownloadQueue::aRelocatedEntryIsQueuedForItsNewAddress()
{
    m_server->relocation("/old", "new");
    m_server->script("/new", { { "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n." } });
    add("/old");
    QTRY_COMPARE(tags(), "F");
    QCOMPARE(m_queue->entryAt(0).url, url("/new"));
    add("/new"); // the list has this URL already
    QCOMPARE(m_queue->count(), 1);
    add("/old");
    QCOMPARE(m_queue->count(), 2);
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(m_queue->entryAt(0).tag, DownloadTag::Complete);

    m_server->script("/a/nowhere", { { "HTTP/1.1 302 Found\r\n\r\n" } });
    add("/a/nowhere");
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_queue->entryAt(2).url, url("/a/nowhere"));

    m_queue->settings().followRelocation = false;
    m_queue->remove({ { 1, 2 } });
    add("/old");
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_queue->entryAt(1).url, url("/old"));
    QCOMPARE(m_queue->entryAt(1).tag, DownloadTag::Complete);
}

void tst_DownloadQueue::addsEachUrlOnce()
{
    m_queue->settings().startImmediately = false;
    add("/a");
    add("/a");
    add("/A");
    m_queue->addDL("http://h/\r\nX: y", 7, {});
    QCOMPARE(m_queue->count(), 3);
    QCOMPARE(m_queue->entryAt(2).url, "http://h/%0D%0AX: y");
    QCOMPARE(m_queue->entryAt(2).size, 7);
    m_queue->remove({ { 0, 0 } });
    add("/a");
    QCOMPARE(m_queue->count(), 3);
}

void tst_DownloadQueue::entriesWaitUntilTheyAreQueued()
{
    m_queue->settings().startImmediately = false;
    m_extras.referer = true;
    m_queue->addDL(url("/a"), -1, "http://r/");
    m_queue->addDL("https://h/", -1, {});
    QCOMPARE(tags(), "..");
    QCOMPARE(statusText(0), QString());
    QSignalSpy idle(m_queue.get(), &DownloadQueue::idle);
    m_queue->queue({ { 0, 1 } });
    QTRY_COMPARE(tags(), "CF");
    QCOMPARE(idle.count(), 1);
    QVERIFY(m_server->requests().constFirst().contains("Referer: http://r/\r\n"));
    QCOMPARE(statusText(1), QStringLiteral("Unsupported protocol"));
}

void tst_DownloadQueue::aRunningEntryBeginsAnew()
{
    m_server->script("/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nhello" }, Afterwards::Stall });
    add("/f");
    QTRY_COMPARE(m_queue->entryAt(0).received, 5);
    m_server->script("/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi" } });
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(tags(), "C");
    QCOMPARE(contentOf(m_queue->entryAt(0).target), "hi");
    QCOMPARE(m_server->paths().size(), 2);
}

void tst_DownloadQueue::stopInTheMiddle(const QByteArray& path)
{
    m_server->script(path, { { "HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nhello" }, Afterwards::Stall });
    add(path);
    const int row = m_queue->count() - 1;
    QTRY_COMPARE(m_queue->entryAt(row).received, 5);
    m_queue->stop({ { row, row } });
    m_server->script(path, { { "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi" } });
}

void tst_DownloadQueue::aStoppedEntryOwnsItsPart()
{
    stopInTheMiddle("/f");
    QCOMPARE(tags(), "V");
    QCOMPARE(statusText(0), QStringLiteral("Prematurely disconnected"));
    QCOMPARE(contentOf(target("f")), "hello");
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(tags(), "C");
    QCOMPARE(contentOf(target("f")), "hi");

    // A file that took the place of the part is somebody else's, even if the entry is removed.
    stopInTheMiddle("/g");
    QVERIFY(writeFile(target("g"), "mine"));
    m_queue->queue({ { 1, 1 } });
    QTRY_COMPARE(tags(), "CF");
    QCOMPARE(statusText(1), QStringLiteral("File already exists"));

    // In another folder the new file makes the part useless.
    stopInTheMiddle("/h");
    const QString part = target("h");
    m_queue->settings().target += QStringLiteral("other/");
    m_queue->queue({ { 2, 2 } });
    QTRY_COMPARE(tags(), "CFC");
    QVERIFY(QFile::exists(target("h")) && !QFile::exists(part));

    stopInTheMiddle("/i");
    QVERIFY(QFile::exists(target("i")));
    m_queue->remove({ { 0, 3 } });
    QVERIFY(!QFile::exists(target("i")) && QFile::exists(target("h")));
    QCOMPARE(contentOf(m_folder->filePath(QStringLiteral("target/g"))), "mine");
}

void tst_DownloadQueue::aFinishedEntryStaysFinished()
{
    m_server->script("/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi" } });
    add("/f");
    QTRY_COMPARE(tags(), "C");
    QVERIFY(writeFile(target("f"), "edited"));
    QSignalSpy ended(m_queue.get(), &DownloadQueue::ended);
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(tags(), "C");
    QCOMPARE(contentOf(target("f")), "edited");
    QCOMPARE(m_server->paths().size(), 1);
    // Gone, or to be overwritten: the entry is fetched again.
    QVERIFY(QFile::remove(target("f")));
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(contentOf(target("f")), "hi");
    m_queue->settings().overwrite = true;
    m_queue->queue({ { 0, 0 } });
    QTRY_COMPARE(ended.count(), 3);
    QCOMPARE(m_server->paths().size(), 3);
}

void tst_DownloadQueue::twoEntriesNeverWriteOneFile()
{
    m_queue->settings().overwrite = true;
    m_server->script("/a/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nfirst" }, Afterwards::Stall });
    m_server->script("/b/f", { { "HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\nsecond" } });
    add("/a/f");
    QTRY_COMPARE(m_queue->entryAt(0).received, 5);
    add("/b/f");
    QTRY_COMPARE(tags(), "VF");
    QCOMPARE(statusText(1), QStringLiteral("Error while creating file"));
    m_server->release("/a/f", " file");
    QTRY_COMPARE(tags(), "CF");
    QCOMPARE(contentOf(target("f")), "first file");
    m_queue->queue({ { 1, 1 } });
    QTRY_COMPARE(tags(), "CC");
}

namespace {

bool isLoading(const DownloadEntry* entry)
{
    return entry->status == DownloadStatus::Loading;
}

/// A simple model of the download list, which walks over all rows for each command.
struct ListModel {
    std::map<int, char> rows; ///< the tags by the ids of the entries
    std::array<int, DownloadSettings::mostSlots> slotItems {}; ///< the entries' ids; 0 for a free slot
    int maximum = DownloadSettings::mostSlots;

    void queue(const QList<int>& ids)
    {
        for (int& item : slotItems)
            item = ids.contains(item) ? 0 : item;
        for (const int id : ids)
            rows[id] = 'W';
        startWaiting();
    }
    void stop(const QList<int>& ids) { goOn(slotsOf(ids)); }
    void remove(const QList<int>& ids)
    {
        for (const int id : ids)
            rows.erase(id);
        goOn(slotsOf(ids));
    }
    void end(int id, char tag, bool removes)
    {
        rows[id] = tag;
        if (tag == 'C' && removes)
            rows.erase(id);
        goOn(slotsOf({ id }));
    }

private:
    [[nodiscard]] std::vector<size_t> slotsOf(const QList<int>& ids) const
    {
        std::vector<size_t> found;
        for (size_t slot = 0; slot < slotItems.size(); ++slot) {
            if (slotItems[slot] != 0 && ids.contains(slotItems[slot]))
                found.push_back(slot);
        }
        return found;
    }
    void goOn(const std::vector<size_t>& freed)
    {
        for (const size_t slot : freed) {
            startNext(slot);
            startWaiting();
        }
    }
    void startWaiting()
    {
        for (size_t slot = 0; slot < static_cast<size_t>(maximum); ++slot) {
            if (slotItems[slot] == 0)
                startNext(slot);
        }
    }
    void startNext(size_t slot)
    {
        const int from = std::exchange(slotItems[slot], 0);
        const auto next = std::find_if(
            rows.begin(), rows.end(), [from](const auto& row) { return row.first >= from && row.second == 'W'; });
        if (slot >= static_cast<size_t>(maximum) || next == rows.end())
            return;
        next->second = 'V';
        slotItems[slot] = next->first;
    }
};

} // namespace

/// Gives random commands while ten transfers run, and compares the rows, their tags and the running entries with the
/// model's after each.
void tst_DownloadQueue::nothingLosesItsSlot()
{
    QRandomGenerator random(4711);
    DownloadSettings& settings = m_queue->settings();
    settings.maxDL = DownloadSettings::mostSlots;
    settings.overwrite = true;
    ListModel model;
    connect(m_queue.get(), &DownloadQueue::ended, this, [&](const DownloadEntry& entry) {
        model.end(static_cast<int>(entry.id), letterOf(entry.tag).at(0), settings.removeFinished);
    });
    const QList<Answer> answers { { { okHeader("x/y") }, Afterwards::Stall },
        { { "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n." } }, {}, { { okHeader("x/y") }, Afterwards::Reset },
        { { "HTTP/1.1 302 Found\r\nLocation: /1\r\n\r\n" } } };
    QSignalSpy changed(m_queue.get(), &DownloadQueue::changed);
    int added = 0;
    for (int step = 0; step < 4000; ++step) {
        RowRuns rows;
        QList<int> ids;
        for (int row = 0; row < m_queue->count(); ++row) {
            if (random.bounded(12) == 0) {
                rows.push_back({ row, row });
                ids += static_cast<int>(m_queue->entryAt(row).id);
            }
        }
        const auto running = m_queue->running();
        switch (random.bounded(7)) {
        case 0:
            model.remove(ids);
            m_queue->remove(mergedRuns(rows));
            break;
        case 1:
            model.stop(ids);
            m_queue->stop(mergedRuns(rows));
            break;
        case 2:
            model.queue(ids);
            m_queue->queue(mergedRuns(rows));
            break;
        case 3:
            // Unless all transfers are stalled in their body, one of them will change soon.
            QVERIFY(std::all_of(running.begin(), running.end(), isLoading) || changed.wait());
            settings.removeFinished = random.bounded(2) == 0;
            break;
        case 4:
            model.maximum = settings.maxDL = 1 + random.bounded(int { DownloadSettings::mostSlots });
            break;
        default:
            const QByteArray path = '/' + QByteArray::number(++added);
            m_server->script(path, answers[random.bounded(answers.size())]);
            const int count = m_queue->count();
            add(path);
            if (m_queue->count() > count)
                model.queue({ static_cast<int>(m_queue->entryAt(count).id) });
        }
        QByteArray expected;
        for (const auto& [id, tag] : model.rows)
            expected += tag;
        QCOMPARE(tags(), expected);
        for (const int item : model.slotItems)
            QVERIFY(item == 0 || m_queue->isRunning(static_cast<quint64>(item)));
        const auto free = std::count(model.slotItems.begin(), model.slotItems.end(), 0);
        QCOMPARE(m_queue->runningCount(), DownloadSettings::mostSlots - static_cast<int>(free));
    }
    QVERIFY(m_server->paths().size() > 100);
    m_queue->disconnect(this);
}

void tst_DownloadQueue::showsProgress_data()
{
    const auto row = table<qint64, qint64, QByteArray>("received", "size", "shown");
    row("a third", 1, 3, "33% 0.33");
    row("a half is rounded up", 57, 200, "29% 0.29");
    row("a small half as well", 3, 200, "2% 0.02");
    row("done", 3, 3, "100% 1.00");
    row("more than announced", 6, 3, "200% 2.00");
    row("unknown size", 6, -1, "? ?");
    row("nothing announced", 6, 0, "? ?");
    row("more than 4 GiB", 5'000'000'000, 10'000'000'000, "50% 0.50");
}

void tst_DownloadQueue::showsProgress()
{
    QFETCH(qint64, received);
    QFETCH(qint64, size);
    DownloadEntry entry;
    entry.status = DownloadStatus::Loading;
    QCOMPARE(entryText::status(entry, LanguageTable()), QStringLiteral("Loading: 0 kiB/S"));
    QCOMPARE(entryText::progress(entry, true), QString());
    entry.received = received;
    entry.size = size;
    entry.speed = 1536;
    const QString shown = entryText::progress(entry, true) + u' ' + entryText::progress(entry, false);
    QTEST(shown.toLatin1(), "shown");
    QCOMPARE(entryText::received(entry), QString::number(received));
    QCOMPARE(entryText::status(entry, LanguageTable()), QStringLiteral("Loading: 1.5 kiB/s"));
}

QTEST_GUILESS_MAIN(tst_DownloadQueue)

#include "tst_DownloadQueue.moc"
