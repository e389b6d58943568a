// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/HeaderFields.h"

#include <algorithm>
#include <array>

namespace {

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The bytes of which names consist.
constexpr std::array<bool, 256> tokenBytes = [] {
    std::array<bool, 256> bytes {};
    for (unsigned char c = '0'; c <= '9'; ++c)
        bytes[c] = true;
    for (unsigned char c = 'a'; c <= 'z'; ++c)
        bytes[c] = bytes[c - 'a' + 'A'] = true;
    for (const char c : { '!', '#', '$', '%', '&', '\'', '*', '+', '-', '.', '^', '_', '`', '|', '~' })
        bytes[static_cast<unsigned char>(c)] = true;
    return bytes;
}();

bool isToken(QByteArrayView text)
{
    return !text.isEmpty()
        && std::all_of(text.begin(), text.end(), [](char c) { return tokenBytes[static_cast<unsigned char>(c)]; });
}

QByteArrayView withoutBlanksAround(QByteArrayView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

std::optional<HeaderFields> HeaderFields::parse(const QByteArray& block)
{
    HeaderFields header;
    header.m_text = block;
    header.m_fields.reserve(16);
    for (qsizetype from = 0; from < block.size();) {
        const qsizetype lineFeed = block.indexOf('\n', from);
        const qsizetype next = lineFeed < 0 ? block.size() : lineFeed + 1;
        Range line { from, lineFeed < 0 ? block.size() : lineFeed };
        if (lineFeed > from && block[lineFeed - 1] == '\r')
            --line.to;
        header.replaceDangerous(line);
        if (from == 0 && !header.readStatusLine(line))
            return {};
        if (from > 0 && line.from == line.to)
            break;
        if (from > 0)
            header.readField(line);
        from = next;
    }
    if (header.m_status == 0)
        return {};
    return header;
}

QByteArrayView HeaderFields::view(Range range) const
{
    return QByteArrayView(m_text).sliced(range.from, range.to - range.from);
}

HeaderFields::Range HeaderFields::withoutBlanks(Range range) const
{
    while (range.from < range.to && isBlank(m_text[range.from]))
        ++range.from;
    while (range.from < range.to && isBlank(m_text[range.to - 1]))
        --range.to;
    return range;
}

/// Puts blanks in the place of bytes that some readers take for the end of a line or text.
void HeaderFields::replaceDangerous(Range line)
{
    for (const char dangerous : { '\0', '\r' }) {
        if (!view(line).contains(dangerous))
            continue;
        m_isDoubtful = true;
        char* const text = m_text.data();
        std::replace(text + line.from, text + line.to, dangerous, ' ');
    }
}

bool HeaderFields::readStatusLine(Range line)
{
    constexpr QByteArrayView protocol = "HTTP/1.";
    QByteArrayView rest = view(line);
    if (!rest.startsWith(protocol))
        return false;
    rest = rest.sliced(protocol.size());
    if (rest.size() < 2 || !isDigit(rest[0]) || !isBlank(rest[1]))
        return false;
    m_isHttp11 = rest[0] != '0';
    rest = withoutBlanksAround(rest.sliced(1));
    constexpr qsizetype digits = 3;
    if (rest.size() < digits || !std::all_of(rest.begin(), rest.begin() + digits, isDigit) || rest[0] == '0'
        || (rest.size() > digits && !isBlank(rest[digits])))
        return false;
    m_status = rest.first(digits).toInt();
    return true;
}

void HeaderFields::readField(Range line)
{
    if (isBlank(m_text[line.from])) {
        continueField(line);
        return;
    }
    const qsizetype colon = view(line).indexOf(':');
    const Range name = withoutBlanks({ line.from, line.from + qMax<qsizetype>(0, colon) });
    m_lastLineIsField = colon > 0 && isToken(view(name));
    if (!m_lastLineIsField || name.to != line.from + colon)
        m_isDoubtful = true;
    if (m_lastLineIsField)
        m_fields.push_back({ name, withoutBlanks({ line.from + colon + 1, line.to }) });
}

void HeaderFields::continueField(Range line)
{
    if (!m_lastLineIsField) {
        m_isDoubtful = true;
        return;
    }
    Range& value = m_fields.back().value;
    char* const text = m_text.data();
    std::fill(text + value.to, text + line.from, ' ');
    value = withoutBlanks({ value.from, line.to });
}

QByteArrayView HeaderFields::value(QByteArrayView name) const
{
    for (const Field& field : m_fields) {
        if (isSameToken(view(field.name), name))
            return view(field.value);
    }
    return {};
}

std::vector<QByteArrayView> HeaderFields::values(QByteArrayView name) const
{
    std::vector<QByteArrayView> found;
    for (const Field& field : m_fields) {
        if (isSameToken(view(field.name), name))
            found.push_back(view(field.value));
    }
    return found;
}

std::vector<QByteArrayView> HeaderFields::elements(QByteArrayView name) const
{
    std::vector<QByteArrayView> found;
    for (QByteArrayView rest : values(name)) {
        while (!rest.isEmpty()) {
            const qsizetype comma = rest.indexOf(',');
            const QByteArrayView element = withoutBlanksAround(comma < 0 ? rest : rest.first(comma));
            if (!element.isEmpty())
                found.push_back(element);
            rest = comma < 0 ? QByteArrayView() : rest.sliced(comma + 1);
        }
    }
    return found;
}
