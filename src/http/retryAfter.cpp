// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/retryAfter.h"

#include "base/allgemein.h"

#include <QDateTime>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <vector>

namespace {

using std::chrono::seconds;

/// The words and numbers of a date: what stands between blanks, commas and hyphens.
std::vector<QByteArrayView> partsOf(QByteArrayView date)
{
    std::vector<QByteArrayView> parts;
    qsizetype from = 0;
    for (qsizetype at = 0; at <= date.size(); ++at) {
        if (at < date.size() && !QByteArrayView(" \t,-").contains(date[at]))
            continue;
        if (at > from)
            parts.push_back(date.sliced(from, at - from));
        from = at + 1;
    }
    return parts;
}

bool isNumber(QByteArrayView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// -1 unless the text is digits, at most `most` of them.
int number(QByteArrayView digits, qsizetype most)
{
    return isNumber(digits) && digits.size() <= most ? digits.toInt() : -1;
}

int monthNumber(QByteArrayView name)
{
    constexpr std::array<QByteArrayView, 12> names { "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep",
        "oct", "nov", "dec" };
    const auto found = std::find_if(names.begin(), names.end(),
        [name](QByteArrayView month) { return name.size() == 3 && allgemein::startsWithNoCase(name, month); });
    return found == names.end() ? -1 : static_cast<int>(found - names.begin()) + 1;
}

/// Two digits mean the year nearest to now that is at most 50 years ahead. 0, which is no year, for other texts.
int fullYear(QByteArrayView digits, const QDateTime& now)
{
    const int year = number(digits, 4);
    if (digits.size() != 2 || year < 0)
        return digits.size() == 4 ? qMax(0, year) : 0;
    const int thisYear = now.toUTC().date().year();
    const int sameCentury = thisYear - thisYear % 100 + year;
    return sameCentury > thisYear + 50 ? sameCentury - 100
        : sameCentury <= thisYear - 50 ? sameCentury + 100
                                       : sameCentury;
}

/// "08:49:37"
QTime timeOf(QByteArrayView text)
{
    if (text.size() != 8 || text[2] != ':' || text[5] != ':')
        return {};
    return { number(text.first(2), 2), number(text.sliced(3, 2), 2), number(text.sliced(6), 2) };
}

/// The date of "Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT" or "Sun Nov  6 08:49:37 1994". An
/// invalid one if it is none of them.
QDateTime httpDate(QByteArrayView text, const QDateTime& now)
{
    const auto parts = partsOf(text);
    const bool isOfC = parts.size() == 5 && monthNumber(parts[1]) > 0;
    if (!isOfC && (parts.size() != 6 || parts[5] != QByteArrayView("GMT")))
        return {};
    const QDate date = isOfC ? QDate(fullYear(parts[4], now), monthNumber(parts[1]), number(parts[2], 2))
                             : QDate(fullYear(parts[3], now), monthNumber(parts[2]), number(parts[1], 2));
    const QTime time = timeOf(isOfC ? parts[3] : parts[4]);
    // With an invalid time, QDateTime would take midnight.
    return time.isValid() ? QDateTime(date, time, Qt::UTC) : QDateTime();
}

} // namespace

std::optional<seconds> retryAfter(QByteArrayView value, const QDateTime& now, seconds most)
{
    const QByteArrayView text = value.trimmed();
    if (isNumber(text)) {
        bool fits = false;
        const qlonglong wait = text.toLongLong(&fits);
        return fits ? qMin(seconds(wait), most) : most;
    }
    const QDateTime date = httpDate(text, now);
    if (!date.isValid())
        return {};
    return std::clamp(seconds(now.secsTo(date)), seconds(0), most);
}
