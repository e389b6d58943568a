// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>

#include <array>
#include <vector>

/// Which URLs a list holds, and how often each. The URLs' bytes are shared, not copied.
///
/// Made for millions of URLs, where the time goes into cache misses. A slot holds the URL's hash and points to its
/// bytes, so an unknown URL costs one miss and a known one two. There are many small tables, which grow one at a time:
/// growing a single one would hold up the event loop. An index that was moved from can only be assigned to.
class UrlIndex {
public:
    [[nodiscard]] bool contains(const QByteArray& url) const;
    void insert(const QByteArray& url);
    /// Undoes one insertion of `url`.
    void remove(const QByteArray& url);
    void clear();
    /// Forgets some of the URLs; false when there are none.
    bool forgetSome();

private:
    /// A hash table with open addressing: a URL stands in the first slot that was free, counted from that of its hash.
    class Table {
    public:
        /// The slot of `url`, or the free one where it belongs.
        [[nodiscard]] size_t find(size_t hash, const QByteArray& url) const;
        [[nodiscard]] bool isFree(size_t slot) const { return m_slots[slot].hash == 0; }
        [[nodiscard]] bool isEmpty() const { return m_count == 0; }
        /// Inserts a URL that the table does not have.
        void add(size_t hash, const QByteArray& url);
        void erase(size_t slot);

    private:
        struct Slot {
            size_t hash = 0; ///< 0 when the slot is free
            QByteArray url;
        };
        [[nodiscard]] size_t next(size_t slot) const { return (slot + 1) & (m_slots.size() - 1); }
        [[nodiscard]] size_t homeOf(size_t hash) const;
        void grow();

        std::vector<Slot> m_slots = std::vector<Slot>(1); ///< a power of two; at least a quarter is free
        size_t m_count = 0;
    };

    static constexpr size_t tableCount = 256;

    /// Never 0.
    [[nodiscard]] static size_t hashOf(const QByteArray& url);
    [[nodiscard]] static size_t tableOf(size_t hash) { return hash % tableCount; }

    std::array<Table, tableCount> m_tables;
    /// How many further times a URL was inserted. Almost always empty.
    QHash<QByteArray, qint32> m_again;
};
