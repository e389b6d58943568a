// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/HtmlPass.h"

#include "base/allgemein.h"

#include <algorithm>

namespace {

constexpr qsizetype none = ForwardFinder<ByteMatcher>::none;

bool isQuote(char c)
{
    return c == '"' || c == '\'';
}

} // namespace

qsizetype TextMatcher::operator()(QByteArrayView text, qsizetype from, qsizetype to) const
{
    return allgemein::indexOfNoCase(text.first(qMin(text.size(), to + needle.size() - 1)), needle, from);
}

qsizetype NotBlankMatcher::operator()(QByteArrayView text, qsizetype from, qsizetype to) const
{
    const auto end = text.begin() + to;
    const auto hit = std::find_if(text.begin() + from, end, [](char c) { return c != ' '; });
    return hit == end ? none : hit - text.begin();
}

std::optional<QuotedValue> QuotedValueReader::read(
    QByteArrayView body, qsizetype place, qsizetype limit, ScanBudget& budget)
{
    const auto equals = m_equals.find(body, place, limit, budget);
    if (!equals)
        return {};
    if (*equals == none || body[*equals] != '=')
        return QuotedValue {};
    const auto open = m_open.find(body, *equals + 1, limit, budget);
    if (!open)
        return {};
    if (*open == none || !isQuote(body[*open]))
        return QuotedValue {};
    auto& quotes = body[*open] == '"' ? m_doubleQuote : m_singleQuote;
    const auto close = quotes.find(body, *open + 1, limit, budget);
    if (!close)
        return {};
    return *close == none ? QuotedValue {} : QuotedValue { *open, *close };
}

HtmlPass::HtmlPass(const PassRule& rule, TagIndex& tags)
    : m_rule(rule)
    , m_tags(tags)
    , m_kind(tags.add(rule.tag))
    , m_attributes(TextMatcher { rule.attribute })
    , m_attributesBehind(TextMatcher { rule.attribute })
{
}

HtmlPass::Step HtmlPass::next(QByteArrayView body, ScanBudget& budget)
{
    // The blank at the end of a tag text is also the blank before an attribute, so the search goes on from there.
    const qsizetype advance = qMax<qsizetype>(1, m_rule.tag.size() - 1);
    for (;;) {
        if (!m_tag)
            m_tag = m_tags.next(m_kind, body, budget);
        if (!m_tag)
            return Step::Pause;
        if (*m_tag == none)
            return Step::End;
        const qsizetype pos = *m_tag + advance;
        const auto tagEnd = m_tagEnds.find(body, pos, budget);
        if (!tagEnd)
            return Step::Pause;
        if (*tagEnd == none)
            return Step::End;
        const auto value = valueIn(body, pos, *tagEnd, budget);
        if (!value)
            return Step::Pause;
        m_tag.reset();
        if (value->isNull() || value->data() == m_value.data())
            continue;
        m_value = *value;
        return Step::Value;
    }
}

std::optional<QByteArrayView> HtmlPass::valueIn(
    QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget)
{
    const auto attribute = m_attributes.find(body, pos, tagEnd, budget);
    if (!attribute)
        return {};
    const auto quoted = *attribute == none ? valueAtStart(body, pos, tagEnd, budget)
                                           : m_values.read(body, *attribute + m_rule.attribute.size(), tagEnd, budget);
    if (!quoted)
        return {};
    const qsizetype size = quoted->close - quoted->open - 1;
    return size >= 0 && size <= longestValue ? body.sliced(quoted->open + 1, size) : QByteArrayView();
}

/// When the rest of the page lacks the attribute, the value is read at the beginning of the page, as if the page began
/// with the attribute's name less its first byte. Stored searches depend on this oddity.
std::optional<QuotedValue> HtmlPass::valueAtStart(
    QByteArrayView body, qsizetype pos, qsizetype tagEnd, ScanBudget& budget)
{
    const auto quoted = m_valueAtStart.read(body, m_rule.attribute.size() - 1, tagEnd, budget);
    // There is hardly ever a value, so most pages need not be searched for the attribute to their ends.
    if (!quoted || quoted->close < 0)
        return quoted;
    const auto behind = m_attributesBehind.find(body, pos, budget);
    if (!behind)
        return {};
    return *behind == none ? quoted : QuotedValue {};
}
