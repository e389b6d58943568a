// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pages/ForwardFinder.h"

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

/// Finds where the tags of several kinds begin, without regard to the case of ASCII letters. Each "<" of the page is
/// looked at once for all kinds: while one kind is searched, the places of the others are kept for later.
class TagIndex {
public:
    static constexpr qsizetype none = ForwardFinder<ByteMatcher>::none;
    /// In bytes. The rest of a longer page is not searched, since places are kept as 32-bit numbers.
    static constexpr qsizetype longestPage = 0xffff'ffff;

    /// Adds a kind and returns its number. `tag` begins with "<", has small letters and outlives the index. Must not be
    /// called after the first `next`.
    size_t add(QByteArrayView tag);

    /// The next tag of this kind, or `none`; nothing when the budget ran out first. Always called with the same page.
    [[nodiscard]] std::optional<qsizetype> next(size_t kind, QByteArrayView page, ScanBudget& budget);

private:
    struct Kind {
        QByteArrayView name; ///< the tag text behind its "<"
        std::deque<quint32> places; ///< found while another kind was searched; a deque grows without copying
    };

    std::vector<Kind> m_kinds;
    ForwardFinder<ByteMatcher> m_brackets { ByteMatcher { '<' } };
    qsizetype m_searched = 0;
};
