// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>

#include <array>
#include <vector>

/// Which URLs a list holds, and how often each. The URLs' bytes are shared, not copied.
///
/// Made for millions of URLs, where every look at memory that is not in the caches counts: a URL's slot holds its hash
/// and leads straight to its bytes, so that a URL that is not there is told by one such look, and one that is there by
/// two. Moved from, it can only be assigned to. And there are many small tables, so that growing costs a little now and
/// then instead of one long standstill.
class UrlIndex {
public:
    [[nodiscard]] bool contains(const QByteArray& url) const;
    void insert(const QByteArray& url);
    /// Takes out one of the times that `url` was inserted.
    void remove(const QByteArray& url);
    void clear();
    /// Forgets some of the URLs; false when there are none.
    bool forgetSome();

private:
    /// A hash table with open addressing: a URL stands in the first slot that is free from its hash's own on.
    class Table {
    public:
        /// The slot of `url`, or the free one where it belongs.
        [[nodiscard]] size_t find(size_t hash, const QByteArray& url) const;
        [[nodiscard]] bool isFree(size_t slot) const { return m_slots[slot].hash == 0; }
        [[nodiscard]] bool isEmpty() const { return m_count == 0; }
        /// Puts a URL that is not there into its slot.
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

        std::vector<Slot> m_slots = std::vector<Slot>(1); ///< a power of two, of which a quarter and more is free
        size_t m_count = 0;
    };

    static constexpr size_t tableCount = 256;

    /// Never 0.
    [[nodiscard]] static size_t hashOf(const QByteArray& url);
    [[nodiscard]] static size_t tableOf(size_t hash) { return hash % tableCount; }

    std::array<Table, tableCount> m_tables;
    /// What was inserted again, and how often. Hardly ever anything.
    QHash<QByteArray, qint32> m_again;
};
