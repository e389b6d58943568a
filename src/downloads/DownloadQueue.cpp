// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/DownloadQueue.h"

#include "base/allgemein.h"
#include "downloads/Transfer.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "http/url.h"

#include <algorithm>
#include <utility>

DownloadQueue::DownloadQueue(RequestExtras& extras, Connections& connections, QObject* parent)
    : QObject(parent)
    , m_extras(extras)
    , m_connections(connections)
{
}

DownloadQueue::~DownloadQueue() = default;

void DownloadQueue::addDL(const QByteArray& url, qint64 size, const QByteArray& referer)
{
    const QByteArray oneLine = allgemein::onOneLine(url);
    if (m_urls.contains(oneLine))
        return;
    auto entry = std::make_unique<DownloadEntry>();
    entry->id = ++m_lastId;
    entry->url = oneLine;
    entry->size = size;
    entry->referer = referer;
    m_urls.insert(oneLine);
    m_entries.push_back(std::move(entry));
    emit added();
    if (m_settings.startImmediately) {
        enqueue(*m_entries.back());
        startWaiting();
    }
}

void DownloadQueue::startWaiting()
{
    const int slotCount = m_settings.active ? m_settings.maxDL : 0;
    for (int index = 0; index < slotCount && !m_waiting.empty(); ++index) {
        if (Slot& slot = m_slots[static_cast<size_t>(index)]; slot.item == 0)
            startNextForSlot(slot);
    }
    tellIfIdle();
}

void DownloadQueue::startNextForSlot(Slot& slot)
{
    const bool inUse = &slot - m_slots.data() < m_settings.maxDL;
    for (;;) {
        const auto next = m_waiting.lower_bound(slot.item);
        if (!inUse || next == m_waiting.end()) {
            slot.item = 0;
            return;
        }
        DownloadEntry& entry = entryOf(*next);
        m_waiting.erase(next);
        m_wasBusy = true;
        if (startEntry(slot, entry))
            return;
    }
}

bool DownloadQueue::startEntry(Slot& slot, DownloadEntry& entry)
{
    slot.item = entry.id;
    if (!m_settings.overwrite && entry.written && entry.written->standsWhole()) {
        endAtOnce(entry, DownloadTag::Complete, DownloadStatus::Complete);
        return false;
    }
    if (!m_connections.rules().fetches(url::protocolOf(entry.url))) {
        endAtOnce(entry, DownloadTag::Failed, DownloadStatus::UnsupportedProtocol);
        return false;
    }
    slot.url = entry.url;
    slot.transfer = std::make_unique<Transfer>(entry, m_settings, m_extras, m_connections, slot.meter, this);
    connect(slot.transfer.get(), &Transfer::changed, this, [this, id = entry.id] { emit changed(id); });
    connect(slot.transfer.get(), &Transfer::ended, this, [this, &slot] { finishSlot(slot); });
    slot.transfer->start();
    emit changed(entry.id);
    return true;
}

void DownloadQueue::endAtOnce(DownloadEntry& entry, DownloadTag tag, DownloadStatus status)
{
    entry.tag = tag;
    entry.status = status;
    emit changed(entry.id);
    reportEnd(entry);
}

void DownloadQueue::finishSlot(Slot& slot)
{
    release(slot);
    reportEnd(entryOf(slot.item));
    serveNext(slot);
}

void DownloadQueue::reportEnd(const DownloadEntry& entry)
{
    emit ended(entry);
    if (entry.tag == DownloadTag::Complete && m_settings.removeFinished) {
        const int row = rowOf(entry.id);
        removeRun({ row, row });
    }
}

void DownloadQueue::serveNext(Slot& slot)
{
    startNextForSlot(slot);
    // Entries further up may wait as well. They are not found by the slot's own walk, which goes down.
    startWaiting();
}

void DownloadQueue::release(Slot& slot)
{
    if (!slot.transfer)
        return;
    slot.transfer->stop();
    slot.transfer->disconnect(this);
    slot.meter.reset();
    // One of the transfer's signals may have led here, so delete it later.
    slot.transfer.release()->deleteLater();
    if (const QByteArray& url = entryOf(slot.item).url; url != slot.url) {
        m_urls.remove(slot.url);
        m_urls.insert(url);
    }
}

void DownloadQueue::enqueue(DownloadEntry& entry)
{
    entry.status = DownloadStatus::Enqueued;
    entry.tag = DownloadTag::Waiting;
    m_waiting.insert(entry.id);
    emit changed(entry.id);
}

void DownloadQueue::queue(const RowRuns& rows)
{
    for (Slot* const slot : slotsServing(rows)) {
        release(*slot);
        slot->item = 0;
    }
    for (const RowRun& run : rows) {
        for (int row = run.first; row <= run.last; ++row)
            enqueue(*m_entries[static_cast<size_t>(row)]);
    }
    startWaiting();
}

void DownloadQueue::stop(const RowRuns& rows)
{
    // Stop all of them before any slot goes on: it could start an entry that is to be stopped.
    const std::vector<Slot*> serving = slotsServing(rows);
    for (Slot* const slot : serving) {
        release(*slot);
        DownloadEntry& entry = entryOf(slot->item);
        entry.status = DownloadStatus::Stopped;
        entry.speed.reset();
        emit changed(entry.id);
    }
    for (Slot* const slot : serving)
        serveNext(*slot);
}

void DownloadQueue::remove(const RowRuns& rows)
{
    const std::vector<Slot*> serving = slotsServing(rows);
    for (Slot* const slot : serving)
        release(*slot);
    // Announce few removals one by one, but many as a reset: each costs the views time in proportion to the list.
    constexpr size_t mostRuns = 64;
    if (rows.size() <= mostRuns)
        std::for_each(rows.rbegin(), rows.rend(), [this](const RowRun& run) { removeRun(run); });
    else
        removeScattered(rows);
    for (Slot* const slot : serving)
        serveNext(*slot);
    tellIfIdle();
}

std::vector<DownloadQueue::Slot*> DownloadQueue::slotsServing(const RowRuns& rows)
{
    std::vector<Slot*> serving;
    for (Slot& slot : m_slots) {
        const int row = slot.transfer ? rowOf(slot.item) : -1;
        const bool isMeant = std::any_of(
            rows.begin(), rows.end(), [row](const RowRun& run) { return run.first <= row && row <= run.last; });
        if (isMeant)
            serving.push_back(&slot);
    }
    return serving;
}

void DownloadQueue::removeScattered(const RowRuns& rows)
{
    emit aboutToReset();
    for (const RowRun& run : rows) {
        for (int row = run.first; row <= run.last; ++row)
            forget(std::exchange(m_entries[static_cast<size_t>(row)], nullptr));
    }
    m_entries.erase(std::remove(m_entries.begin(), m_entries.end(), nullptr), m_entries.end());
    emit wasReset();
}

void DownloadQueue::forget(const std::unique_ptr<DownloadEntry>& entry)
{
    if (entry->written)
        entry->written->removePart();
    m_waiting.erase(entry->id);
    m_urls.remove(entry->url);
}

void DownloadQueue::removeRun(const RowRun& run)
{
    const auto first = m_entries.begin() + run.first;
    const auto end = m_entries.begin() + run.last + 1;
    emit aboutToRemove(run.first, run.last);
    std::for_each(first, end, [this](const auto& entry) { forget(entry); });
    m_entries.erase(first, end);
    emit removed();
}

void DownloadQueue::tellIfIdle()
{
    if (m_wasBusy && m_waiting.empty() && runningCount() == 0) {
        m_wasBusy = false;
        emit idle();
    }
}

int DownloadQueue::rowOf(quint64 id) const
{
    const auto place = std::lower_bound(m_entries.begin(), m_entries.end(), id,
        [](const std::unique_ptr<DownloadEntry>& entry, quint64 wanted) { return entry->id < wanted; });
    return static_cast<int>(place - m_entries.begin());
}

DownloadEntry& DownloadQueue::entryOf(quint64 id)
{
    return *m_entries[static_cast<size_t>(rowOf(id))];
}

bool DownloadQueue::isRunning(quint64 id) const
{
    return std::any_of(
        m_slots.begin(), m_slots.end(), [id](const Slot& slot) { return slot.transfer && slot.item == id; });
}

int DownloadQueue::runningCount() const
{
    return static_cast<int>(
        std::count_if(m_slots.begin(), m_slots.end(), [](const Slot& slot) { return slot.transfer != nullptr; }));
}

std::vector<const DownloadEntry*> DownloadQueue::running() const
{
    std::vector<const DownloadEntry*> entries;
    for (const Slot& slot : m_slots) {
        if (slot.transfer)
            entries.push_back(&entryAt(rowOf(slot.item)));
    }
    return entries;
}
