// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeTypeList.h"

namespace {

/// Tests for equality first: that is faster than the case-insensitive comparison, and most types match exactly.
int compare(const QByteArray& a, const QByteArray& b)
{
    return a == b ? 0 : a.compare(b, Qt::CaseInsensitive);
}

} // namespace

MimeTypeList::Place MimeTypeList::placeOf(const QByteArray& type) const
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

MimeTypeList::Entry& MimeTypeList::insert(const QByteArray& type)
{
    const Place place = placeOf(type);
    if (!place.isTaken)
        m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(place.index), { type, false });
    return m_entries[place.index];
}

std::optional<size_t> MimeTypeList::leastUseful() const
{
    std::optional<size_t> listed;
    for (size_t index = 0; index < m_entries.size(); ++index) {
        if (m_entries[index].met)
            continue;
        if (!m_entries[index].listed)
            return index;
        listed = index;
    }
    return listed;
}

void MimeTypeList::remove(size_t index)
{
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(index));
}

void MimeTypeList::forgetMet()
{
    for (Entry& entry : m_entries)
        entry.met = false;
}

bool MimeTypeList::isListed(const QByteArray& type) const
{
    const Place place = placeOf(type);
    return place.isTaken && m_entries[place.index].listed;
}
