// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ItemPrinter.h"

#include "base/allgemein.h"
#include "base/lang.h"
#include "console/Terminal.h"
#include "crawl/url.h"
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

/// Wider texts are cut in a table; the last column, the URL, never is.
constexpr qsizetype widestCell = 40;

template <typename Use> void forEachShown(const FundListe& list, const ResultFilter& filter, Use use)
{
    for (const FundKnoten* knoten = list.getStart(); knoten; knoten = knoten->naechster) {
        if (filter.shows(knoten->inhalt))
            use(knoten->inhalt);
    }
}

/// A URL as Unicode text that leads to the same place, whatever its bytes.
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
        { QStringLiteral("state"), static_cast<int>(item.zustand) },
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

QString cell(const QString& text)
{
    return text.size() <= widestCell ? text : text.first(widestCell - 1) + QChar(0x2026);
}

bool isRightAligned(qsizetype column)
{
    constexpr qsizetype size = 2;
    constexpr qsizetype depth = 3;
    return column == size || column == depth;
}

QString aligned(const QStringList& row, const std::vector<qsizetype>& widths)
{
    QString line;
    for (qsizetype column = 0; column + 1 < row.size(); ++column) {
        const qsizetype width = widths[static_cast<size_t>(column)];
        line += isRightAligned(column) ? row[column].rightJustified(width) : row[column].leftJustified(width);
        line += QLatin1String("  ");
    }
    return line + row.last() + u'\n';
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

ItemPrinter::ItemPrinter(const LanguageTable& language, StatusText statusText)
    : m_language(language)
    , m_statusText(std::move(statusText))
{
}

void ItemPrinter::print(QIODevice& out, ItemFormat format, const FundListe& list, const ResultFilter& filter) const
{
    switch (format) {
    case ItemFormat::Tsv:
        forEachShown(list, filter, [&](const FundStück& item) { out.write(SearchFile::itemLine(item) + '\n'); });
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
    // Two walks, so that the widths are known without keeping a table of texts for a million items.
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
    for (int column = 1; column <= 8; ++column)
        titles +=
            m_language.text(QByteArray("main.l_founds.ColumnHeaders(" + QByteArray::number(column) + ')').constData());
    return titles;
}

QStringList ItemPrinter::row(const FundStück& item) const
{
    const auto text = [](QByteArrayView bytes) {
        return terminal::printable(allgemein::fromSystem(bytes));
    };
    return {
        cell(text(url::fileNameOf(item.adresse))),
        cell(text(item.mimeTyp)),
        readableSize(item.groesse),
        QString::number(item.tiefe),
        cell(terminal::printable(m_statusText(item))),
        twk::referenceTypeName(item.referenzTyp),
        cell(text(item.sprache)),
        text(item.adresse),
    };
}
