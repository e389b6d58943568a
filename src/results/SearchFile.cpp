// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFile.h"

#include "base/allgemein.h"
#include "http/url.h"

#include <array>
#include <charconv>
#include <utility>

namespace {

/// Reads the fields of a line one after the other.
class FieldReader {
public:
    explicit FieldReader(QByteArrayView line)
        : m_line(line)
    {
    }

    /// The next field; empty after the last one.
    QByteArrayView text()
    {
        const qsizetype start = std::exchange(m_next, m_line.size() + 1);
        if (start > m_line.size())
            return {};
        const qsizetype tab = m_line.indexOf('\t', start);
        if (tab >= 0)
            m_next = tab + 1;
        return tab < 0 ? m_line.sliced(start) : m_line.sliced(start, tab - start);
    }
    /// The next field. Shares the bytes of `other` if they are equal.
    QByteArray textLike(const QByteArray& other)
    {
        const QByteArrayView own = text();
        return own == other ? other : own.toByteArray();
    }
    qint32 number() { return allgemein::leadingNumber32(text()); }
    qint64 size() { return allgemein::leadingNumber(text()); }

private:
    QByteArrayView m_line;
    qsizetype m_next = 0;
};

void appendText(QByteArray& line, const QByteArray& text)
{
    if (allgemein::isOnOneLine(text))
        line += text;
    else
        line += allgemein::onOneLine(text);
}

/// Appends a TAB and the number.
void appendNumber(QByteArray& line, qint64 number)
{
    std::array<char, 24> digits { '\t' };
    const auto written = std::to_chars(digits.begin() + 1, digits.end(), number);
    line.append(digits.data(), written.ptr - digits.data());
}

} // namespace

void searchFile::appendItemLine(QByteArray& text, const FundStück& item)
{
    appendText(text, item.adresse);
    text += '\t';
    appendText(text, item.mimeTyp);
    for (const qint64 number : { item.groesse, qint64 { item.tiefe }, static_cast<qint64>(item.keptState()),
             qint64 { item.statusCode }, static_cast<qint64>(item.referenzTyp) })
        appendNumber(text, number);
    text += '\t';
    appendText(text, item.sprache);
    text += '\t';
    appendText(text, item.referer);
}

QByteArray searchFile::itemLine(const FundStück& item)
{
    QByteArray line;
    appendItemLine(line, item);
    return line;
}

std::optional<FundStück> searchFile::itemFrom(QByteArrayView line, const FundStück& like)
{
    FieldReader fields(line);
    FundStück item;
    item.adresse = allgemein::onOneLine(fields.text().toByteArray());
    item.mimeTyp = fields.textLike(like.mimeTyp);
    item.groesse = fields.size();
    item.tiefe = fields.number();
    item.zustand = static_cast<FetchState>(fields.number());
    item.statusCode = fields.number();
    item.referenzTyp = static_cast<ReferenceType>(fields.number());
    item.sprache = fields.textLike(like.sprache);
    item.referer = fields.textLike(like.referer);
    return item.adresse.isEmpty() || item.adresse.size() > 4 * url::longest ? std::nullopt
                                                                            : std::optional(std::move(item));
}
