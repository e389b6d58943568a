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

class RequestExtras;
class Transfer;

/// The download list and the slots in which its entries are transferred. Rows are counted from 0. What it costs to add
/// an entry, to test for duplicates and to find the next one does not grow with the list.
class DownloadQueue final : public QObject {
    Q_OBJECT

public:
    /// Request lines and cookies come from `extras`, which must outlive the queue.
    explicit DownloadQueue(RequestExtras& extras, QObject* parent = nullptr);
    ~DownloadQueue() override;

    [[nodiscard]] DownloadSettings& settings() { return m_settings; }
    [[nodiscard]] const DownloadSettings& settings() const { return m_settings; }

    /// Adds an entry, unless its URL is in the list. `size` is in bytes, -1 when unknown.
    void addDL(const QByteArray& url, qint64 size, const QByteArray& referer);
    /// Gives waiting entries to the slots that are free.
    void startWaiting();
    /// Queues entries again, whatever became of them; those that are running begin anew.
    void queue(const RowRuns& rows);
    /// Stops the transfers of entries; they keep what they show. The slots go on with the next ones.
    void stop(const RowRuns& rows);
    /// Takes entries off the list, stopping those that are running.
    void remove(const RowRuns& rows);

    [[nodiscard]] int count() const { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] const DownloadEntry& entryAt(int row) const { return *m_entries[static_cast<size_t>(row)]; }
    [[nodiscard]] int rowOf(quint64 id) const;
    [[nodiscard]] bool isRunning(quint64 id) const;
    [[nodiscard]] int runningCount() const;
    [[nodiscard]] int waitingCount() const { return static_cast<int>(m_waiting.size()); }
    /// The entries that slots serve.
    [[nodiscard]] std::vector<const DownloadEntry*> running() const;

signals:
    /// An entry was appended.
    void added();
    void changed(quint64 id);
    void aboutToRemove(int firstRow, int lastRow);
    void removed();
    /// Entries all over the list are taken off it.
    void aboutToReset();
    void wasReset();
    /// A transfer has come to its end, whatever it was.
    void ended(const DownloadEntry& entry);
    /// Nothing is running and nothing waits any more.
    void idle();

private:
    struct Slot {
        /// The entry that the slot serves or, once its transfer is over, has served last; 0 when the slot is free.
        quint64 item = 0;
        QByteArray url; ///< the entry's when its transfer began
        DLGeschwindigkeitsmessung meter;
        std::unique_ptr<Transfer> transfer;
    };

    [[nodiscard]] std::vector<Slot*> slotsServing(const RowRuns& rows);
    [[nodiscard]] DownloadEntry& entryOf(quint64 id);
    /// Starts the next waiting entry from the slot's own on; frees the slot when there is none.
    void startNextForSlot(Slot& slot);
    /// False when the entry's protocol is not spoken, which ends it.
    [[nodiscard]] bool startEntry(Slot& slot, DownloadEntry& entry);
    void finishSlot(Slot& slot);
    void goOn(Slot& slot);
    /// Ends a slot's transfer, if it has one, without a word.
    void release(Slot& slot);
    void enqueue(DownloadEntry& entry);
    void removeRun(const RowRun& run);
    void removeScattered(const RowRuns& rows);
    /// Takes an entry out of everything but the list.
    void forget(const std::unique_ptr<DownloadEntry>& entry);
    void tellIfIdle();

    RequestExtras& m_extras;
    DownloadSettings m_settings;
    /// In ascending order of their ids.
    std::vector<std::unique_ptr<DownloadEntry>> m_entries;
    UrlIndex m_urls; ///< relocation can make two alike
    std::set<quint64> m_waiting;
    std::array<Slot, DownloadSettings::mostSlots> m_slots;
    quint64 m_lastId = 0;
    bool m_wasBusy = false;
};
