// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

#include <optional>
#include <utility>

/// How many bytes the searches of one step may still scan.
class ScanBudget {
public:
    explicit ScanBudget(qsizetype bytes)
        : m_left(bytes)
    {
    }

    [[nodiscard]] bool isSpent() const { return m_left <= 0; }
    [[nodiscard]] qsizetype left() const { return m_left; }
    void spend(qsizetype bytes) { m_left -= bytes; }

private:
    qsizetype m_left;
};

/// Finds the next match in a text, for a series of calls whose starts and limits never decrease. The last match is
/// remembered until a call starts behind it, so all calls together scan each byte once. A search that runs out of
/// budget goes on when the same call is made again.
///
/// `Matcher` finds the first match that starts in [from, to): `qsizetype operator()(QByteArrayView text, qsizetype
/// from, qsizetype to) const`, -1 when there is none. A match may reach beyond `to`.
template <typename Matcher> class ForwardFinder {
public:
    /// The answer when nothing matches up to the end of the text.
    static constexpr qsizetype none = -1;

    explicit ForwardFinder(Matcher matcher)
        : m_matcher(std::move(matcher))
    {
    }

    /// The first match at or after `from` in all of `text`, or `none`; nothing when the budget ran out first.
    [[nodiscard]] std::optional<qsizetype> find(QByteArrayView text, qsizetype from, ScanBudget& budget)
    {
        return find(text, from, text.size(), budget);
    }

    /// The same for matches that start before `limit`.
    [[nodiscard]] std::optional<qsizetype> find(
        QByteArrayView text, qsizetype from, qsizetype limit, ScanBudget& budget)
    {
        if (m_match >= from)
            return m_match;
        m_searched = qMax(m_searched, from);
        while (m_searched < limit) {
            if (budget.isSpent())
                return {};
            const qsizetype end = m_searched + qMin(budget.left(), limit - m_searched);
            m_match = m_matcher(text, m_searched, end);
            const qsizetype searched = m_match == none ? end : m_match + 1;
            budget.spend(searched - m_searched);
            m_searched = searched;
            if (m_match != none)
                return m_match;
        }
        return none;
    }

private:
    Matcher m_matcher;
    qsizetype m_match = none;
    /// No place before this one holds a match, except `m_match`.
    qsizetype m_searched = 0;
};
