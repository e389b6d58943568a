// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeListe.h"

namespace {

/// Types are mostly written alike, which is told many letters at a time.
int compare(const QByteArray& a, const QByteArray& b)
{
    return a == b ? 0 : a.compare(b, Qt::CaseInsensitive);
}

} // namespace

MimeListe::Place MimeListe::placeOf(const QByteArray& type) const
{
    size_t first = 0;
    size_t end = m_entries.size();
    while (first < end) {
        const size_t middle = first + (end - first) / 2;
        const int order = compare(m_entries[middle].type, type);
        if (order == 0)
            return { middle, true };
        if (order < 0)
            first = middle + 1;
        else
            end = middle;
    }
    return { first, false };
}

MimeListe::Entry& MimeListe::insert(const QByteArray& type)
{
    const Place place = placeOf(type);
    if (!place.isTaken)
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(place.index), { type, false });
    return m_entries[place.index];
}

bool MimeListe::isListed(const QByteArray& type) const
{
    const Place place = placeOf(type);
    return place.isTaken && m_entries[place.index].listed;
}
