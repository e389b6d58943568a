// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <vector>

/// The MIME types that were met so far, sorted and compared without regard to letter case, each listed or not.
class MimeListe {
public:
    struct Entry {
        QByteArray type;
        bool listed = false;
    };

    /// Servers can send any number of types; what comes after this many is not listed.
    static constexpr size_t most = 5000;
    [[nodiscard]] bool isFull() const { return m_entries.size() >= most; }

    struct Place {
        size_t index = 0;
        bool isTaken = false;
    };
    /// Where a type's entry is, or where it belongs.
    [[nodiscard]] Place placeOf(const QByteArray& type) const;
    [[nodiscard]] bool contains(const QByteArray& type) const { return placeOf(type).isTaken; }
    /// Adds a type, unless it is in the list; returns its entry.
    Entry& insert(const QByteArray& type);
    void setListed(size_t index, bool listed) { m_entries[index].listed = listed; }
    /// Whether the type is in the list and marked as listed.
    [[nodiscard]] bool isListed(const QByteArray& type) const;
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};
