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

    /// Adds a type, unless it is in the list; returns its entry.
    Entry& insert(const QByteArray& type);
    /// Whether the type is in the list and marked as listed.
    [[nodiscard]] bool isListed(const QByteArray& type) const;
    [[nodiscard]] const std::vector<Entry>& entries() const { return m_entries; }

private:
    std::vector<Entry> m_entries;
};
