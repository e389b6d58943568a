// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFile.h"

#include "base/allgemein.h"

#include <QBuffer>
#include <QFile>
#include <QSaveFile>

#include <utility>

namespace {

constexpr QByteArrayView resultsMark = "Results:";

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
    return lines.data() + resultsMark + allgemein::lineEnd;
}

/// Neighbouring items mostly have the same type and referrer: they share its bytes.
void shareEqualTexts(FundStück& item, const FundKnoten* previous)
{
    if (!previous)
        return;
    if (item.mimeTyp == previous->inhalt.mimeTyp)
        item.mimeTyp = previous->inhalt.mimeTyp;
    if (item.sprache == previous->inhalt.sprache)
        item.sprache = previous->inhalt.sprache;
    if (item.referer == previous->inhalt.referer)
        item.referer = previous->inhalt.referer;
}

/// Reads a file line by line into a search.
class Loader {
public:
    Loader(StoredSearch& search, QList<SearchFile::SkippedLine>& skipped)
        : m_search(search)
        , m_skipped(skipped)
    {
    }

    void take(const QByteArray& line)
    {
        ++m_number;
        if (m_inResults)
            takeItem(line);
        else
            takeHeaderLine(line);
    }

    [[nodiscard]] bool knewSomething() const { return m_knewSomething; }

private:
    void takeHeaderLine(const QByteArray& line)
    {
        if (const auto pair = allgemein::splitKeyValue(line)) {
            if (m_search.options.initOpt(pair->key, pair->value)
                || twkEinstellungen::readRequestPref(m_search.prefs, pair->key, pair->value))
                m_knewSomething = true;
            else
                skip(SearchFile::SkippedLine::UnknownKey, pair->key);
        } else if (line == resultsMark) {
            m_inResults = m_knewSomething = true;
        } else {
            skip(SearchFile::SkippedLine::NoKey, line);
        }
    }

    void takeItem(const QByteArray& line)
    {
        auto item = SearchFile::itemFrom(line);
        if (!item) {
            skip(SearchFile::SkippedLine::NoUrl, line);
            return;
        }
        shareEqualTexts(*item, m_search.list.getLetzter());
        m_search.list.add(std::move(*item));
    }

    void skip(SearchFile::SkippedLine::Why why, const QByteArray& text) { m_skipped += { m_number, why, text }; }

    StoredSearch& m_search;
    QList<SearchFile::SkippedLine>& m_skipped;
    qint64 m_number = 0;
    bool m_inResults = false;
    bool m_knewSomething = false;
};

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
    return item.adresse.isEmpty() ? std::nullopt : std::optional(std::move(item));
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

SearchFile::LoadResult SearchFile::load(const QString& fileName, StoredSearch& search)
{
    LoadResult result;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        result.error = LoadError::CannotOpen;
        result.systemText = file.errorString();
        return result;
    }
    Loader loader(search, result.skipped);
    bool whole = true;
    while (whole) {
        const auto line = allgemein::readLine(file);
        if (!line)
            break;
        whole = line->ended;
        if (whole)
            loader.take(line->text);
    }
    if (file.error() != QFile::NoError) {
        result.error = LoadError::CannotRead;
        result.systemText = file.errorString();
    } else if (!loader.knewSomething()) {
        result.error = LoadError::NotASearchFile;
    } else if (!whole) {
        result.error = LoadError::Truncated;
    }
    return result;
}
