// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/ForwardFinder.h"
#include "crawl/FundListe.h"

#include <QByteArrayView>

#include <optional>

/// Finds a text, ASCII letters alike in both cases.
struct TextMatcher {
    QByteArrayView needle;
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Finds one byte.
struct ByteMatcher {
    char byte;
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Finds anything but a blank.
struct NotBlankMatcher {
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Where the quotes of an attribute value stand.
struct QuotedValue {
    qsizetype open = -1;
    qsizetype close = -1;
    [[nodiscard]] bool endsBefore(qsizetype place) const { return close > open && close < place; }
};

/// Reads what follows an attribute's name: blanks, "=", blanks, and a value in double or single quotes. The places
/// that it is asked for must not decrease.
class QuotedValueReader {
public:
    /// The value whose name ends before `place`, without quotes when there is none; nothing when the budget ran out.
    [[nodiscard]] std::optional<QuotedValue> read(QByteArrayView body, qsizetype place, ScanBudget& budget);

private:
    ForwardFinder<NotBlankMatcher> m_equals { NotBlankMatcher {} };
    ForwardFinder<NotBlankMatcher> m_open { NotBlankMatcher {} };
    ForwardFinder<ByteMatcher> m_doubleQuote { ByteMatcher { '"' } };
    ForwardFinder<ByteMatcher> m_singleQuote { ByteMatcher { '\'' } };
};

/// Which tags a pass looks at, which attribute it reads, and what it records.
struct PassRule {
    QByteArrayView tag;
    QByteArrayView attribute;
    ReferenzTyp typ;
};

/// One pass over a page: the quoted values of one attribute in one kind of tag, in the order of their tags. It searches
/// text and parses nothing: an attribute counts for a tag when its value closes before the tag's first ">". Tags that
/// run into one another may share a value; it is given once.
class HtmlPass {
public:
    /// A longer value, in bytes, is passed over.
    static constexpr qsizetype longestValue = 1024 * 1024;

    enum class Step {
        Value, ///< `value` is the next one
        Pause, ///< the budget is spent; call again
        End,
    };

    explicit HtmlPass(const PassRule& rule);

    /// Always called with the same body.
    [[nodiscard]] Step next(QByteArrayView body, ScanBudget& budget);
    [[nodiscard]] QByteArrayView value() const { return m_value; }
    [[nodiscard]] ReferenzTyp typ() const { return m_rule.typ; }

private:
    /// The value for a tag whose search goes on at `pos`: null when it has none; nothing when the budget ran out.
    [[nodiscard]] std::optional<QByteArrayView> valueAt(QByteArrayView body, qsizetype pos, ScanBudget& budget);

    PassRule m_rule;
    qsizetype m_pos = 0;
    QByteArrayView m_value;
    ForwardFinder<TextMatcher> m_tags;
    ForwardFinder<TextMatcher> m_attributes;
    ForwardFinder<ByteMatcher> m_tagEnds { ByteMatcher { '>' } };
    QuotedValueReader m_values;
    QuotedValueReader m_valueAtStart;
};
