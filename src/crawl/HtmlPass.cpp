// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/HtmlPass.h"

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

qsizetype ByteMatcher::operator()(QByteArrayView text, qsizetype from, qsizetype to) const
{
    return text.first(to).indexOf(byte, from);
}

qsizetype NotBlankMatcher::operator()(QByteArrayView text, qsizetype from, qsizetype to) const
{
    const auto end = text.begin() + to;
    const auto hit = std::find_if(text.begin() + from, end, [](char c) { return c != ' '; });
    return hit == end ? none : hit - text.begin();
}

std::optional<QuotedValue> QuotedValueReader::read(QByteArrayView body, qsizetype place, ScanBudget& budget)
{
    const auto equals = m_equals.find(body, place, budget);
    if (!equals)
        return {};
    if (*equals == none || body[*equals] != '=')
        return QuotedValue {};
    const auto open = m_open.find(body, *equals + 1, budget);
    if (!open)
        return {};
    if (*open == none || !isQuote(body[*open]))
        return QuotedValue {};
    auto& quotes = body[*open] == '"' ? m_doubleQuote : m_singleQuote;
    const auto close = quotes.find(body, *open + 1, budget);
    if (!close)
        return {};
    return QuotedValue { *open, *close };
}

HtmlPass::HtmlPass(const PassRule& rule)
    : m_rule(rule)
    , m_tags(TextMatcher { rule.tag })
    , m_attributes(TextMatcher { rule.attribute })
{
}

HtmlPass::Step HtmlPass::next(QByteArrayView body, ScanBudget& budget)
{
    // The blank at the end of a tag text is also the blank before an attribute, so the search goes on from there.
    const qsizetype advance = qMax<qsizetype>(1, m_rule.tag.size() - 1);
    for (;;) {
        const auto tag = m_tags.find(body, m_pos, budget);
        if (!tag)
            return Step::Pause;
        if (*tag == none)
            return Step::End;
        const auto value = valueAt(body, *tag + advance, budget);
        if (!value)
            return Step::Pause;
        m_pos = *tag + advance;
        if (value->isNull() || value->data() == m_value.data())
            continue;
        m_value = *value;
        return Step::Value;
    }
}

std::optional<QByteArrayView> HtmlPass::valueAt(QByteArrayView body, qsizetype pos, ScanBudget& budget)
{
    const auto tagEnd = m_tagEnds.find(body, pos, budget);
    if (!tagEnd)
        return {};
    if (*tagEnd == none)
        return QByteArrayView();
    const auto attribute = m_attributes.find(body, pos, budget);
    if (!attribute)
        return {};
    // Without the attribute in the rest of the page, the value is looked for where it would stand if the page began
    // with the attribute's name, one byte short. Odd, but found references depend on it.
    const qsizetype place = m_rule.attribute.size() + (*attribute == none ? -1 : *attribute);
    if (place >= *tagEnd)
        return QByteArrayView();
    const auto quoted = (*attribute == none ? m_valueAtStart : m_values).read(body, place, budget);
    if (!quoted)
        return {};
    const qsizetype size = quoted->close - quoted->open - 1;
    return quoted->endsBefore(*tagEnd) && size <= longestValue ? body.sliced(quoted->open + 1, size) : QByteArrayView();
}
