// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/TagIndex.h"

#include "base/allgemein.h"

#include <algorithm>

size_t TagIndex::add(QByteArrayView tag)
{
    m_kinds.push_back({ tag.sliced(1), {} });
    return m_kinds.size() - 1;
}

std::optional<qsizetype> TagIndex::next(size_t kind, QByteArrayView page, ScanBudget& budget)
{
    Kind& wanted = m_kinds[kind];
    if (!wanted.places.empty()) {
        if (budget.isSpent())
            return {};
        // Charge the budget as a search does, so that a long run of kept places is interrupted too.
        budget.spend(wanted.name.size() + 1);
        const qsizetype place = wanted.places.front();
        wanted.places.pop_front();
        return place;
    }
    while (const auto place = m_brackets.find(page, m_searched, qMin(page.size(), longestPage), budget)) {
        if (*place == none)
            return none;
        m_searched = *place + 1;
        const QByteArrayView behind = page.sliced(m_searched);
        const auto found = std::find_if(m_kinds.begin(), m_kinds.end(),
            [&](const Kind& candidate) { return allgemein::startsWithNoCase(behind, candidate.name); });
        if (found == m_kinds.begin() + static_cast<std::ptrdiff_t>(kind))
            return place;
        if (found != m_kinds.end())
            found->places.push_back(static_cast<quint32>(*place));
    }
    return {};
}
