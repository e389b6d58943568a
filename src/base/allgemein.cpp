// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"

#include <QIODevice>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace allgemein {

namespace {

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool equalNoCase(const char* a, const char* b, qsizetype length)
{
    return std::equal(a, a + length, b, [](char x, char y) { return lower(x) == lower(y); });
}

const char* findByte(const char* from, const char* end, char byte)
{
    const void* hit = std::memchr(from, byte, static_cast<size_t>(end - from));
    return hit ? static_cast<const char*>(hit) : end;
}

qsizetype skipDigits(QByteArrayView text, qsizetype from)
{
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

bool isSign(QByteArrayView text, qsizetype at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-');
}

/// The leading part of `text` that reads as a decimal number; empty when there is none.
QByteArrayView numberPrefix(QByteArrayView text)
{
    const qsizetype digits = isSign(text, 0) ? 1 : 0;
    qsizetype end = skipDigits(text, digits);
    qsizetype count = end - digits;
    if (end < text.size() && text[end] == '.') {
        const qsizetype fractionEnd = skipDigits(text, end + 1);
        count += fractionEnd - end - 1;
        end = fractionEnd;
    }
    return count == 0 ? QByteArrayView() : text.first(end);
}

qint64 roundedNumber(QByteArrayView number)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    const double value = std::nearbyint(number.toByteArray().toDouble());
    return value >= -limit && value < limit ? static_cast<qint64>(value) : 0;
}

/// 0 beyond 64 bits.
qint64 wholeNumber(QByteArrayView number)
{
    const QByteArrayView digits = number.startsWith('+') ? number.sliced(1) : number;
    qint64 value = 0;
    return std::from_chars(digits.begin(), digits.end(), value).ec == std::errc() ? value : 0;
}

constexpr bool breaksLine(char c)
{
    return c == '\t' || c == '\r' || c == '\n' || c == '\0';
}

} // namespace

QString fromSystem(QByteArrayView bytes)
{
    return QString::fromLocal8Bit(bytes);
}

QString shownText(QByteArrayView bytes)
{
    constexpr qsizetype longest = 1000;
    const QString text = withVisibleControls(fromSystem(bytes.first(qMin(bytes.size(), longest))));
    return bytes.size() <= longest ? text : text + QChar(0x2026);
}

bool isHiddenControl(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString withVisibleControls(const QString& text)
{
    const auto mayBeHidden = [](QChar c) {
        return c.isSurrogate() || isHiddenControl(c.unicode());
    };
    if (std::none_of(text.begin(), text.end(), mayBeHidden))
        return text;
    QString visible;
    for (const char32_t character : text.toStdU32String()) {
        const auto units = QChar::fromUcs4(character);
        const QStringView one(units);
        if (isHiddenControl(character))
            visible += QString::fromLatin1(one.toUtf8().toPercentEncoding());
        else
            visible += one;
    }
    return visible;
}

QString editedText(QByteArrayView bytes)
{
    return withVisibleControls(fromSystem(bytes));
}

QByteArray toSystem(QStringView text)
{
    return text.toLocal8Bit();
}

qint64 leadingNumber(QByteArrayView text)
{
    qsizetype start = 0;
    while (start < text.size() && (text[start] == ' ' || text[start] == '\t'))
        ++start;
    const QByteArrayView number = numberPrefix(text.sliced(start));
    // Read a whole number without a double, which would lose digits of a long one.
    return number.contains('.') ? roundedNumber(number) : wholeNumber(number);
}

qint32 leadingNumber32(QByteArrayView text)
{
    const qint64 value = leadingNumber(text);
    const bool fits = value >= std::numeric_limits<qint32>::min() && value <= std::numeric_limits<qint32>::max();
    return fits ? static_cast<qint32>(value) : 0;
}

bool readSwitch(QByteArrayView text)
{
    return leadingNumber(text) > 0;
}

QByteArray writeSwitch(bool on)
{
    return on ? QByteArrayLiteral("1") : QByteArrayLiteral("0");
}

qsizetype indexOfNoCase(QByteArrayView text, QByteArrayView needle, qsizetype from)
{
    if (text.size() - from < needle.size())
        return notFound;
    const qsizetype rest = needle.size() - 1;
    const char* const begin = text.data();
    const char* const end = begin + text.size() - rest;
    const char small = lower(needle[0]);
    const char capital = upper(needle[0]);
    const char* nextSmall = findByte(begin + from, end, small);
    const char* nextCapital = capital == small ? end : findByte(begin + from, end, capital);
    while (nextSmall != end || nextCapital != end) {
        const char* const candidate = std::min(nextSmall, nextCapital);
        if (equalNoCase(candidate + 1, needle.data() + 1, rest))
            return candidate - begin;
        if (candidate == nextSmall)
            nextSmall = findByte(candidate + 1, end, small);
        else
            nextCapital = findByte(candidate + 1, end, capital);
    }
    return notFound;
}

QByteArray percentEncoded(const QByteArray& bytes, bool (*isEncoded)(char))
{
    QByteArray encoded;
    for (const char c : bytes) {
        if (isEncoded(c))
            encoded += '%' + QByteArray(1, c).toHex().toUpper();
        else
            encoded += c;
    }
    return encoded;
}

bool isOnOneLine(QByteArrayView bytes)
{
    // All four are at most CR, and most texts have no byte that low. The compiler vectorises the search for the least
    // byte, so this test is much faster than looking for each of the four.
    unsigned char least = 0xff;
    for (const char c : bytes)
        least = std::min(least, static_cast<unsigned char>(c));
    return least > '\r' || std::none_of(bytes.begin(), bytes.end(), breaksLine);
}

QByteArray onOneLine(const QByteArray& bytes)
{
    return isOnOneLine(bytes) ? bytes : percentEncoded(bytes, breaksLine);
}

bool writeAll(QIODevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size();
}

std::optional<KeyValue> splitKeyValue(const QByteArray& line)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        return {};
    return KeyValue { line.first(equals), line.sliced(equals + 1) };
}

void writeKeyValue(QIODevice& file, QByteArrayView key, const QByteArray& value)
{
    file.write(key.toByteArray() + '=' + onOneLine(value) + lineEnd);
}

void writeListItems(QIODevice& file, QByteArrayView key, const QList<QByteArray>& items)
{
    for (const QByteArray& item : items)
        writeKeyValue(file, key, item);
}

} // namespace allgemein
