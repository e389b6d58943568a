// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"

#include "base/Platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
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
    return bytes.size() <= longest ? fromSystem(bytes) : fromSystem(bytes.first(longest)) + QChar(0x2026);
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
    // A whole number is read as such: a double would lose digits of a long one.
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
    // They are among the first control characters, of which most texts have none. The least byte tells that, and the
    // compiler finds it many bytes at a time.
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

QString withTrailingSeparator(const QString& folder)
{
    const QChar separator = QDir::separator();
    return folder.endsWith(separator) || folder.endsWith(u'/') ? folder : folder + separator;
}

void createFolder(const QString& folder)
{
    QDir().mkpath(folder);
}

bool isPlainFileName(QByteArrayView name)
{
    constexpr QByteArrayView separators("/\\\0", 3);
    const auto separates = [&](char c) {
        return separators.contains(c);
    };
    return !name.isEmpty() && name != "." && name != ".." && std::none_of(name.begin(), name.end(), separates)
        && !platform::isReservedFileName(name);
}

QString dataFolder()
{
    if (const QString chosen = qEnvironmentVariable("TARNWICK_DATA"); !chosen.isEmpty())
        return withTrailingSeparator(chosen);
    const QString program = withTrailingSeparator(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    const bool isPortable = QFileInfo::exists(program + QLatin1String("portable.txt"));
    const QString above = isPortable ? program : withTrailingSeparator(platform::applicationDataFolder());
    return withTrailingSeparator(above + QLatin1String("Tarnwick"));
}

} // namespace allgemein
