// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/MimeListe.h"

#include <algorithm>

namespace {

bool sortsBefore(const MimeListe::Entry& entry, const QByteArray& type)
{
    return entry.type.compare(type, Qt::CaseInsensitive) < 0;
}

bool isSame(const MimeListe::Entry& entry, const QByteArray& type)
{
    return entry.type.compare(type, Qt::CaseInsensitive) == 0;
}

} // namespace

MimeListe::Entry& MimeListe::insert(const QByteArray& type)
{
    auto place = std::lower_bound(m_entries.begin(), m_entries.end(), type, sortsBefore);
    if (place == m_entries.end() || !isSame(*place, type))
        place = m_entries.insert(place, { type, false });
    return *place;
}

bool MimeListe::isListed(const QByteArray& type) const
{
    const auto place = std::lower_bound(m_entries.begin(), m_entries.end(), type, sortsBefore);
    return place != m_entries.end() && isSame(*place, type) && place->listed;
}
