// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"
#include "crawl/UrlIndex.h"
#include "downloads/DLGeschwindigkeitsmessung.h"
#include "downloads/DownloadEntry.h"
#include "downloads/DownloadSettings.h"

#include <QObject>

#include <array>
#include <memory>
#include <set>
#include <vector>

class Connections;
class RequestExtras;
class Transfer;

/// The download list, and the slots that transfer its entries. Rows are counted from 0. Adding an entry, testing for
/// duplicates and finding the next entry take the same time in a list of any length.
class DownloadQueue final : public QObject {
    Q_OBJECT

public:
    /// `extras` supplies request lines and cookies. Both arguments must outlive the queue.
    DownloadQueue(RequestExtras& extras, Connections& connections, QObject* parent = nullptr);
    ~DownloadQueue() override;

    [[nodiscard]] DownloadSettings& settings() { return m_settings; }
    [[nodiscard]] const DownloadSettings& settings() const { return m_settings; }

    /// Adds an entry, unless the list has its URL already. `size` is in bytes, -1 when unknown.
    void addDL(const QByteArray& url, qint64 size, const QByteArray& referer);
    /// Gives waiting entries to the slots that are free.
    void startWaiting();
    /// Queues entries again in whatever state they are. A running one begins anew. A finished one is not fetched again
    /// while its file stands there and existing files are not overwritten.
    void queue(const RowRuns& rows);
    /// Stops the transfers of entries, which keep their tag. Their slots go on with the next entries.
    void stop(const RowRuns& rows);
    /// Removes entries from the list, and the files of which they have written only a part. Entries that are running
    /// are stopped first.
    void remove(const RowRuns& rows);

    [[nodiscard]] int count() const { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] const DownloadEntry& entryAt(int row) const { return *m_entries[static_cast<size_t>(row)]; }
    [[nodiscard]] int rowOf(quint64 id) const;
    [[nodiscard]] bool isRunning(quint64 id) const;
    [[nodiscard]] int runningCount() const;
    [[nodiscard]] int waitingCount() const { return static_cast<int>(m_waiting.size()); }
    /// The entries that are being transferred.
    [[nodiscard]] std::vector<const DownloadEntry*> running() const;

signals:
    /// An entry was appended to the list.
    void added();
    void changed(quint64 id);
    void aboutToRemove(int firstRow, int lastRow);
    void removed();
    /// Entries in many places of the list are about to be removed.
    void aboutToReset();
    void wasReset();
    /// A transfer has ended by itself, successfully or not.
    void ended(const DownloadEntry& entry);
    /// The last transfer has ended and no entry is waiting.
    void idle();

private:
    struct Slot {
        /// The id of the entry that the slot serves, or served last while it looks for the next one; 0 when it is free.
        quint64 item = 0;
        QByteArray url; ///< the entry's URL when its transfer began
        DLGeschwindigkeitsmessung meter;
        std::unique_ptr<Transfer> transfer;
    };

    [[nodiscard]] std::vector<Slot*> slotsServing(const RowRuns& rows);
    [[nodiscard]] DownloadEntry& entryOf(quint64 id);
    /// Starts the first waiting entry at or below the row that the slot served last, and frees the slot when there is
    /// none.
    void startNextForSlot(Slot& slot);
    /// Returns false when the entry ended at once: its protocol is not supported, or its file is there already.
    [[nodiscard]] bool startEntry(Slot& slot, DownloadEntry& entry);
    void endAtOnce(DownloadEntry& entry, DownloadTag tag, DownloadStatus status);
    void finishSlot(Slot& slot);
    /// Reports the end of an entry, and removes it from the list if the user wants that for finished ones.
    void reportEnd(const DownloadEntry& entry);
    /// Starts the next entry on a slot whose transfer has ended, and waiting entries on all free slots.
    void serveNext(Slot& slot);
    /// Ends the transfer of a slot, if it has one, without a signal.
    void release(Slot& slot);
    void enqueue(DownloadEntry& entry);
    void removeRun(const RowRun& run);
    void removeScattered(const RowRuns& rows);
    /// Removes an entry from all indexes, but not from the list.
    void forget(const std::unique_ptr<DownloadEntry>& entry);
    void tellIfIdle();

    RequestExtras& m_extras;
    Connections& m_connections;
    DownloadSettings m_settings;
    /// In ascending order of their ids.
    std::vector<std::unique_ptr<DownloadEntry>> m_entries;
    UrlIndex m_urls; ///< may hold a URL twice, since relocation changes URLs
    std::set<quint64> m_waiting;
    std::array<Slot, DownloadSettings::mostSlots> m_slots;
    quint64 m_lastId = 0;
    bool m_wasBusy = false;
};
