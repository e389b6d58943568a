// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFile.h"

#include "base/allgemein.h"
#include "crawl/url.h"

#include <QBuffer>
#include <QSaveFile>

#include <utility>

namespace {

template <typename Enum> QByteArray number(Enum value)
{
    return QByteArray::number(static_cast<qint32>(value));
}

/// Takes the fields of a line one after the other.
class FieldReader {
public:
    explicit FieldReader(const QByteArray& line)
        : m_line(line)
    {
    }

    /// Up to the next TAB or the end; empty beyond it.
    QByteArray text()
    {
        const qsizetype start = std::exchange(m_next, m_line.size() + 1);
        if (start > m_line.size())
            return {};
        const qsizetype tab = m_line.indexOf('\t', start);
        if (tab >= 0)
            m_next = tab + 1;
        return tab < 0 ? m_line.sliced(start) : m_line.sliced(start, tab - start);
    }
    qint32 number() { return allgemein::leadingNumber32(text()); }
    qint64 size() { return allgemein::leadingNumber(text()); }

private:
    const QByteArray& m_line;
    qsizetype m_next = 0;
};

/// Everything before the item lines.
QByteArray headerLines(const SearchOptions& options, const RequestPrefs& prefs)
{
    QBuffer lines;
    lines.open(QIODevice::WriteOnly);
    options.speicherOpts(lines);
    twkEinstellungen::writeRequestPrefs(lines, prefs);
    return lines.data() + SearchFile::resultsMark + allgemein::lineEnd;
}

} // namespace

QByteArray SearchFile::itemLine(const FundStück& item)
{
    using allgemein::onOneLine;
    return onOneLine(item.adresse) + '\t' + onOneLine(item.mimeTyp) + '\t' + QByteArray::number(item.groesse) + '\t'
        + QByteArray::number(item.tiefe) + '\t' + number(item.zustand) + '\t' + QByteArray::number(item.statusCode)
        + '\t' + number(item.referenzTyp) + '\t' + onOneLine(item.sprache) + '\t' + onOneLine(item.referer);
}

std::optional<FundStück> SearchFile::itemFrom(const QByteArray& line)
{
    FieldReader fields(line);
    FundStück item;
    item.adresse = allgemein::onOneLine(fields.text());
    item.mimeTyp = fields.text();
    item.groesse = fields.size();
    item.tiefe = fields.number();
    item.zustand = static_cast<Zustand>(fields.number());
    item.statusCode = fields.number();
    item.referenzTyp = static_cast<ReferenzTyp>(fields.number());
    item.sprache = fields.text();
    item.referer = fields.text();
    return item.adresse.isEmpty() || item.adresse.size() > 4 * url::longest ? std::nullopt
                                                                            : std::optional(std::move(item));
}

std::optional<QString> SearchFile::save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    bool written = allgemein::writeAll(file, headerLines(options, prefs));
    for (const FundKnoten* knoten = list.getStart(); knoten && written; knoten = knoten->naechster)
        written = allgemein::writeAll(file, itemLine(knoten->inhalt) + allgemein::lineEnd);
    if (written)
        return file.commit() ? std::nullopt : std::optional(file.errorString());
    file.cancelWriting();
    return QStringLiteral("not all could be written; the disk may be full");
}
