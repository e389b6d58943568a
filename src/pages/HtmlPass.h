// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pages/ForwardFinder.h"
#include "pages/ReferenceType.h"
#include "pages/TagIndex.h"

#include <QByteArrayView>

#include <optional>

/// Finds a text, without regard to the case of ASCII letters.
struct TextMatcher {
    QByteArrayView needle;
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// Finds anything but a blank.
struct NotBlankMatcher {
    qsizetype operator()(QByteArrayView text, qsizetype from, qsizetype to) const;
};

/// The places of the two quotes around an attribute value; -1 without a value.
struct QuotedValue {
    qsizetype open = -1;
    qsizetype close = -1;
};

/// Reads the text behind an attribute's name: blanks, "=", blanks, and a value in double or single quotes. From call to
/// call, places and limits must not decrease.
class QuotedValueReader {
public:
    /// The value of the attribute whose name ends just before `place`; its closing quote must stand before `limit`.
    /// Nothing when the budget ran out.
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
    ReferenceType type = ReferenceType::Unknown;
};

/// One pass over a page: the quoted values of one attribute in one kind of tag, in the order of the tags. The page is
/// searched as text, not parsed: an attribute belongs to a tag when its value closes before the tag's first ">". Tags
/// with no ">" between them share the value behind them, which is given once.
class HtmlPass {
public:
    /// In bytes. A longer value is skipped.
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
    [[nodiscard]] ReferenceType type() const { return m_rule.type; }

private:
    /// The value in a tag from `pos` to its end: null when it has none; nothing when the budget ran out.
    [[nodiscard]] std::optional<QByteArrayView> valueIn(
        QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget);
    /// The value in a tag of a page whose rest lacks the attribute.
    [[nodiscard]] std::optional<QuotedValue> valueAtStart(
        QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget);

    PassRule m_rule;
    TagIndex& m_tags;
    size_t m_kind;
    std::optional<qsizetype> m_tag; ///< the tag that is being read
    QByteArrayView m_value;
    ForwardFinder<ByteMatcher> m_tagEnds { ByteMatcher { '>' } };
    ForwardFinder<TextMatcher> m_attributes; ///< searches up to the end of a tag
    ForwardFinder<TextMatcher> m_attributesBehind; ///< searches up to the end of the page
    QuotedValueReader m_values;
    QuotedValueReader m_valueAtStart;
};
