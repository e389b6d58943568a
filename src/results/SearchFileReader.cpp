// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFileReader.h"

#include "base/allgemein.h"
#include "results/SearchFile.h"

#include <utility>

using searchFile::LoadError;
using searchFile::SkippedLine;

namespace {

/// In bytes. A line has two fields from a header of up to 256 KiB, whose bytes may be percent-encoded as three each,
/// and two URLs.
constexpr qsizetype longestLine = 4 * 1024 * 1024;
/// If none of this many lines at the beginning of a file is understood, it is no search file.
constexpr qint64 mostUnknownLines = 10'000;

} // namespace

bool searchFile::isUsable(LoadError error)
{
    switch (error) {
    case LoadError::None:
    case LoadError::Truncated:
        return true;
    case LoadError::CannotOpen:
    case LoadError::CannotRead:
    case LoadError::NotASearchFile:
        return false;
    }
    return false;
}

SearchFileReader::SearchFileReader(const QString& fileName, StoredSearch& search)
    : m_file(fileName)
    , m_lines(m_file, longestLine)
    , m_search(search)
{
    if (const auto error = openForReading(m_file, QIODevice::Unbuffered)) {
        m_result.error = LoadError::CannotOpen;
        m_result.reason = *error;
    } else {
        // Editors write the mark; it belongs to no line.
        skipUtf8Mark(m_file);
    }
}

bool SearchFileReader::readSome()
{
    // A look at the clock, which follows each call, costs more than a line.
    constexpr int linesPerCall = 100;
    for (int line = 0; m_file.isOpen() && line < linesPerCall; ++line) {
        if (!readLine())
            return false;
    }
    return m_file.isOpen();
}

bool SearchFileReader::readLine()
{
    const auto line = isHopeless() ? std::nullopt : m_lines.next();
    const bool whole = !line || line->ended;
    if (line && whole) {
        takeLine(line->text);
        return true;
    }
    finish(whole);
    return false;
}

bool SearchFileReader::isHopeless() const
{
    return !m_knewSomething && m_number > mostUnknownLines;
}

void SearchFileReader::finish(bool whole)
{
    if (m_file.error() != QFile::NoError) {
        m_result.error = LoadError::CannotRead;
        m_result.reason = { FileError::System, m_file.errorString() };
    } else if (!m_knewSomething) {
        m_result.error = LoadError::NotASearchFile;
    } else if (!whole) {
        m_result.error = LoadError::Truncated;
    }
    m_file.close();
}

void SearchFileReader::takeLine(QByteArrayView line)
{
    ++m_number;
    if (m_inResults)
        takeItem(line);
    else
        takeHeaderLine(line.toByteArray());
}

void SearchFileReader::takeHeaderLine(const QByteArray& line)
{
    if (const auto pair = allgemein::splitKeyValue(line)) {
        if (m_search.options.initOpt(pair->key, pair->value)
            || twkEinstellungen::readRequestPref(m_search.prefs, pair->key, pair->value))
            m_knewSomething = true;
        else
            skip(SkippedLine::UnknownKey, pair->key);
    } else if (line == searchFile::resultsMark) {
        m_inResults = m_knewSomething = true;
    } else {
        skip(SkippedLine::NoKey, line);
    }
}

void SearchFileReader::takeItem(QByteArrayView line)
{
    const FundKnoten* const previous = m_search.list.getLetzter();
    auto item = previous ? searchFile::itemFrom(line, previous->inhalt) : searchFile::itemFrom(line);
    if (!item) {
        skip(SkippedLine::NoUrl, line);
        return;
    }
    const bool isNewType = !previous || item->mimeTyp.constData() != previous->inhalt.mimeTyp.constData();
    if (isNewType && !item->mimeTyp.isEmpty() && !m_search.mimeTypes.isFull())
        m_search.mimeTypes.insert(item->mimeTyp);
    m_search.list.add(std::move(*item));
}

void SearchFileReader::skip(SkippedLine::Why why, QByteArrayView text)
{
    constexpr qsizetype most = 100;
    constexpr qsizetype longest = 200;
    ++m_result.skippedCount;
    if (m_result.skipped.size() < most)
        m_result.skipped += { m_number, why, text.first(qMin(text.size(), longest)).toByteArray() };
}

searchFile::LoadResult searchFile::load(const QString& fileName, StoredSearch& search)
{
    SearchFileReader reader(fileName, search);
    while (reader.readSome()) { }
    return reader.result();
}
