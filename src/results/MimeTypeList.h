// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// The MIME types of the filter, sorted, each listed or not. Letter case is ignored. The types that the present search
/// has met are marked, so that older ones can make room for them.
class MimeTypeList {
public:
    struct Entry {
        QByteArray type;
        bool listed = false;
        bool met = false; ///< by the present search
    };

    /// The largest number of types that servers and files can add to the list.
    static constexpr size_t most = 5000;
    [[nodiscard]] bool isFull() const { return m_entries.size() >= most; }

    struct Place {
        size_t index = 0;
        bool isTaken = false;
    };
    /// Where a type's entry is, or would be inserted.
    [[nodiscard]] Place placeOf(const QByteArray& type) const;
    [[nodiscard]] bool contains(const QByteArray& type) const { return placeOf(type).isTaken; }
    /// Adds a type unless it is in the list. Returns its entry.
    Entry& insert(const QByteArray& type);
    void setListed(size_t index, bool listed) { m_entries[index].listed = listed; }
    /// The entry to remove when a new type needs room: one that the present search has not met, if possible one that is
    /// not listed either. nullopt if the search has met all types.
    [[nodiscard]] std::optional<size_t> leastUseful() const;
    void remove(size_t index);
    void setMet(size_t index) { m_entries[index].met = true; }
    /// Call this when another search begins.
    void forgetMet();
    /// Whether the type is in the list and marked as listed.
    [[nodiscard]] bool isListed(const QByteArray& type) const;
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};
