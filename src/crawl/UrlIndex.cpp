// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/UrlIndex.h"

#include <algorithm>
#include <utility>

size_t UrlIndex::Table::homeOf(size_t hash) const
{
    return hash / tableCount & (m_slots.size() - 1);
}

size_t UrlIndex::Table::find(size_t hash, const QByteArray& url) const
{
    size_t slot = homeOf(hash);
    while (!isFree(slot) && !(m_slots[slot].hash == hash && m_slots[slot].url == url))
        slot = next(slot);
    return slot;
}

void UrlIndex::Table::add(size_t hash, const QByteArray& url)
{
    if ((m_count + 1) * 4 >= m_slots.size() * 3)
        grow();
    m_slots[find(hash, url)] = { hash, url };
    ++m_count;
}

void UrlIndex::Table::grow()
{
    std::vector<Slot> old(m_slots.size() * 2);
    old.swap(m_slots);
    for (Slot& each : old) {
        if (each.hash == 0)
            continue;
        size_t slot = homeOf(each.hash);
        while (!isFree(slot))
            slot = next(slot);
        m_slots[slot] = std::move(each);
    }
}

void UrlIndex::Table::erase(size_t slot)
{
    // The URLs up to the next free slot may have found this slot taken. Each that did moves up.
    for (size_t other = next(slot); !isFree(other); other = next(other)) {
        const size_t mask = m_slots.size() - 1;
        const size_t distance = (other - homeOf(m_slots[other].hash)) & mask;
        if (distance >= ((other - slot) & mask)) {
            m_slots[slot] = std::exchange(m_slots[other], {});
            slot = other;
        }
    }
    m_slots[slot] = {};
    --m_count;
}

size_t UrlIndex::hashOf(const QByteArray& url)
{
    // The seed differs from one run of the program to the next, so no site can be made to collide. The highest bit
    // chooses neither table nor slot.
    constexpr size_t highest = ~(~size_t { 0 } >> 1);
    return qHash(url, QHashSeed::globalSeed()) | highest;
}

bool UrlIndex::contains(const QByteArray& url) const
{
    const size_t hash = hashOf(url);
    const Table& table = m_tables[tableOf(hash)];
    return !table.isFree(table.find(hash, url));
}

void UrlIndex::insert(const QByteArray& url)
{
    const size_t hash = hashOf(url);
    Table& table = m_tables[tableOf(hash)];
    if (table.isFree(table.find(hash, url)))
        table.add(hash, url);
    else
        ++m_again[url];
}

void UrlIndex::remove(const QByteArray& url)
{
    if (const auto again = m_again.find(url); again != m_again.end()) {
        if (--*again == 0)
            m_again.erase(again);
        return;
    }
    const size_t hash = hashOf(url);
    Table& table = m_tables[tableOf(hash)];
    if (const size_t slot = table.find(hash, url); !table.isFree(slot))
        table.erase(slot);
}

bool UrlIndex::forgetSome()
{
    const auto table =
        std::find_if(m_tables.begin(), m_tables.end(), [](const Table& each) { return !each.isEmpty(); });
    if (table == m_tables.end())
        return !std::exchange(m_again, {}).isEmpty();
    *table = {};
    return true;
}

void UrlIndex::clear()
{
    m_tables.fill({});
    m_again.clear();
}
