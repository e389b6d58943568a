// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/ForwardFinder.h"

#include <QByteArrayView>

#include <cstring>
#include <deque>
#include <optional>
#include <vector>

/// Finds one byte.
struct ByteMatcher {
    char byte;
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const
    {
        const void* const hit = std::memchr(text.data() + from, byte, static_cast<size_t>(to - from));
        return hit ? static_cast<const char*>(hit) - text.data() : -1;
    }
};

/// Finds where the tags of several kinds begin, ASCII letters alike in both cases. All kinds together look at each "<"
/// of the page once: while one kind is asked for, the places of the others are kept for their turn.
class TagIndex {
public:
    static constexpr qsizetype none = ForwardFinder<ByteMatcher>::none;
    /// Only so much of a page is looked at, in bytes: places are kept as 32-bit numbers.
    static constexpr qsizetype longestPage = 0xffff'ffff;

    /// Looks for `tag` as well, which begins with "<", has small letters and outlives the index. Returns its kind.
    /// Before the first `next`.
    size_t add(QByteArrayView tag);

    /// The next tag of this kind, or `none`; nothing when the budget ran out first. Always called with the same page.
    [[nodiscard]] std::optional<qsizetype> next(size_t kind, QByteArrayView page, ScanBudget& budget);

private:
    struct Kind {
        QByteArrayView name; ///< what stands behind the "<"
        std::deque<quint32> places; ///< found while another kind was asked for; a deque grows without copies
    };

    std::vector<Kind> m_kinds;
    ForwardFinder<ByteMatcher> m_brackets { ByteMatcher { '<' } };
    qsizetype m_searched = 0;
};
