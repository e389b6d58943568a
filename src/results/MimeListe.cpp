// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeListe.h"

#include <algorithm>

size_t MimeListe::placeOf(const QByteArray& type) const
{
    const auto sortsBefore = [](const Entry& entry, const QByteArray& other) {
        return entry.type.compare(other, Qt::CaseInsensitive) < 0;
    };
    return static_cast<size_t>(
        std::lower_bound(m_entries.begin(), m_entries.end(), type, sortsBefore) - m_entries.begin());
}

bool MimeListe::standsAt(size_t place, const QByteArray& type) const
{
    return place < m_entries.size() && m_entries[place].type.compare(type, Qt::CaseInsensitive) == 0;
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
