// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeListe.h"

#include <algorithm>

namespace {

/// Types are mostly written alike, which is told many letters at a time.
int compare(const QByteArray& a, const QByteArray& b)
{
    return a == b ? 0 : a.compare(b, Qt::CaseInsensitive);
}

} // namespace

size_t MimeListe::placeOf(const QByteArray& type) const
{
    const auto sortsBefore = [](const Entry& entry, const QByteArray& other) {
        return compare(entry.type, other) < 0;
    };
    return static_cast<size_t>(
        std::lower_bound(m_entries.begin(), m_entries.end(), type, sortsBefore) - m_entries.begin());
}

bool MimeListe::standsAt(size_t place, const QByteArray& type) const
{
    return place < m_entries.size() && compare(m_entries[place].type, type) == 0;
}

bool MimeListe::contains(const QByteArray& type) const
{
    return standsAt(placeOf(type), type);
}

MimeListe::Entry& MimeListe::insert(const QByteArray& type)
{
    const size_t place = placeOf(type);
    if (!standsAt(place, type))
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(place), { type, false });
    return m_entries[place];
}

bool MimeListe::isListed(const QByteArray& type) const
{
    const size_t place = placeOf(type);
    return standsAt(place, type) && m_entries[place].listed;
}
