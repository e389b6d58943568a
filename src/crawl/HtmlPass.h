// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/ForwardFinder.h"
#include "crawl/FundListe.h"
#include "crawl/TagIndex.h"

#include <QByteArrayView>

#include <optional>

/// Finds a text, ASCII letters alike in both cases.
struct TextMatcher {
    QByteArrayView needle;
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Finds anything but a blank.
struct NotBlankMatcher {
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Where the quotes of an attribute value stand; both alike without a value.
struct QuotedValue {
    qsizetype open = -1;
    qsizetype close = -1;
};

/// Reads what follows an attribute's name: blanks, "=", blanks, and a value in double or single quotes. The places and
/// limits that it is asked for must not decrease.
class QuotedValueReader {
public:
    /// The value whose name ends before `place` and whose last quote stands before `limit`; nothing when the budget ran
    /// out.
    [[nodiscard]] std::optional<QuotedValue> read(
        QByteArrayView body, qsizetype place, qsizetype limit, ScanBudget& budget);

private:
    ForwardFinder<NotBlankMatcher> m_equals { NotBlankMatcher {} };
    ForwardFinder<NotBlankMatcher> m_open { NotBlankMatcher {} };
    ForwardFinder<ByteMatcher> m_doubleQuote { ByteMatcher { '"' } };
    ForwardFinder<ByteMatcher> m_singleQuote { ByteMatcher { '\'' } };
};

/// Which tags a pass looks at, which attribute it reads, and what it records.
struct PassRule {
    QByteArrayView tag; ///< as `TagIndex` takes it
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

    /// `tags`, which must outlive the pass, may be shared with others.
    HtmlPass(const PassRule& rule, TagIndex& tags);

    /// Always called with the same body.
    [[nodiscard]] Step next(QByteArrayView body, ScanBudget& budget);
    [[nodiscard]] QByteArrayView value() const { return m_value; }
    [[nodiscard]] ReferenzTyp typ() const { return m_rule.typ; }

private:
    /// The value in a tag from `pos` to its end: null when it has none; nothing when the budget ran out.
    [[nodiscard]] std::optional<QByteArrayView> valueIn(
        QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget);
    /// The value of an attribute that the rest of the page lacks.
    [[nodiscard]] std::optional<QuotedValue> valueAtStart(
        QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget);

    PassRule m_rule;
    TagIndex& m_tags;
    size_t m_kind;
    std::optional<qsizetype> m_tag; ///< the one that is looked at
    QByteArrayView m_value;
    ForwardFinder<ByteMatcher> m_tagEnds { ByteMatcher { '>' } };
    ForwardFinder<TextMatcher> m_attributes; ///< asked up to the end of a tag
    ForwardFinder<TextMatcher> m_attributesBehind; ///< asked up to the end of the page
    QuotedValueReader m_values;
    QuotedValueReader m_valueAtStart;
};
