// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ItemPrinter.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "console/Terminal.h"
#include "results/ResultColumns.h"
#include "results/ResultFilter.h"
#include "results/SearchFile.h"
#include "results/twk.h"

#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QStringList>

#include <utility>
#include <vector>

namespace {

/// Longer texts are cut in a table, but URLs never are.
constexpr qsizetype widestCell = 40;

template <typename Use> void forEachShown(const FundListe& list, const ResultFilter& filter, Use use)
{
    for (const FundKnoten* node = list.getStart(); node; node = node->naechster()) {
        if (filter.shows(node->inhalt))
            use(node->inhalt);
    }
}

/// A URL as Unicode text that fetches the same. If its bytes are no text, those beyond ASCII are percent-encoded.
QString unicodeUrl(const QByteArray& url)
{
    const QString text = allgemein::fromSystem(url);
    if (allgemein::toSystem(text) == url)
        return text;
    const auto isBeyondAscii = [](char c) {
        return static_cast<unsigned char>(c) >= 0x80;
    };
    return QString::fromLatin1(allgemein::percentEncoded(url, isBeyondAscii));
}

QByteArray jsonLine(const FundStück& item)
{
    using allgemein::fromSystem;
    const QJsonObject object {
        { QStringLiteral("url"), unicodeUrl(item.adresse) },
        { QStringLiteral("mime"), fromSystem(item.mimeTyp) },
        { QStringLiteral("size"), item.groesse == -1 ? QJsonValue() : QJsonValue(item.groesse) },
        { QStringLiteral("depth"), item.tiefe },
        { QStringLiteral("state"), static_cast<int>(item.keptState()) },
        { QStringLiteral("status"), item.statusCode },
        { QStringLiteral("reference"), twk::referenceTypeName(item.referenzTyp) },
        { QStringLiteral("language"), fromSystem(item.sprache) },
        { QStringLiteral("referer"), unicodeUrl(item.referer) },
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString readableSize(qint64 bytes)
{
    return bytes < 0 ? QStringLiteral("?") : QLocale::c().formattedDataSize(bytes, 1);
}

QString cut(const QString& text)
{
    return text.size() <= widestCell ? text : text.first(widestCell - 1) + QChar(0x2026);
}

QString aligned(const QStringList& row, const std::vector<qsizetype>& widths)
{
    QString line;
    for (const ResultColumn& column : resultColumns()) {
        const QString& text = row[column.id];
        if (column.id == ResultColumn::Count - 1)
            return line + text + u'\n';
        // The status may be a text: why there was no answer.
        const bool toTheRight = column.isNumber() && column.id != ResultColumn::Status;
        const qsizetype width = widths[column.id];
        line += (toTheRight ? text.rightJustified(width) : text.leftJustified(width)) + QLatin1String("  ");
    }
    return line;
}

} // namespace

std::optional<ItemFormat> itemFormatFrom(const QString& name)
{
    if (name == QLatin1String("tsv"))
        return ItemFormat::Tsv;
    if (name == QLatin1String("urls"))
        return ItemFormat::Urls;
    if (name == QLatin1String("json"))
        return ItemFormat::Json;
    if (name == QLatin1String("table"))
        return ItemFormat::Table;
    return {};
}

ItemPrinter::ItemPrinter(const LanguageTable& language)
    : m_language(language)
{
}

void ItemPrinter::print(QIODevice& out, ItemFormat format, const FundListe& list, const ResultFilter& filter) const
{
    switch (format) {
    case ItemFormat::Tsv:
        forEachShown(list, filter, [&](const FundStück& item) { out.write(searchFile::itemLine(item) + '\n'); });
        break;
    case ItemFormat::Urls:
        forEachShown(list, filter, [&](const FundStück& item) { out.write(item.adresse + '\n'); });
        break;
    case ItemFormat::Json:
        forEachShown(list, filter, [&](const FundStück& item) { out.write(jsonLine(item) + '\n'); });
        break;
    case ItemFormat::Table:
        printTable(out, list, filter);
        break;
    }
}

void ItemPrinter::printTable(QIODevice& out, const FundListe& list, const ResultFilter& filter) const
{
    // Walk the list twice: first for the widths, then to print. Keeping the texts of a million items would cost too
    // much.
    std::vector<qsizetype> widths;
    for (const QString& title : header())
        widths.push_back(title.size());
    forEachShown(list, filter, [&](const FundStück& item) {
        const QStringList texts = row(item);
        for (size_t column = 0; column < widths.size(); ++column)
            widths[column] = qMax(widths[column], texts[static_cast<qsizetype>(column)].size());
    });
    const auto print = [&](const QStringList& texts) {
        out.write(allgemein::toSystem(aligned(texts, widths)));
    };
    print(header());
    forEachShown(list, filter, [&](const FundStück& item) { print(row(item)); });
}

QStringList ItemPrinter::header() const
{
    QStringList titles;
    for (const ResultColumn& column : resultColumns())
        titles += m_language.text(column.headerKey);
    return titles;
}

QStringList ItemPrinter::row(const FundStück& item) const
{
    QStringList cells;
    for (const ResultColumn& column : resultColumns()) {
        const QString text = terminal::printable(textOf(column, item));
        cells += column.id == ResultColumn::Url ? text : cut(text);
    }
    return cells;
}

QString ItemPrinter::textOf(const ResultColumn& column, const FundStück& item) const
{
    if (column.id == ResultColumn::Size)
        return readableSize(item.groesse);
    if (column.id == ResultColumn::Status && item.statusCode == 0 && item.reason)
        return twk::stateText(*item.reason, m_language);
    return allgemein::fromSystem(column.text(item));
}
