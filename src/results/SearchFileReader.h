// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileError.h"
#include "base/LineReader.h"
#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"
#include "results/MimeTypeList.h"

#include <QFile>
#include <QList>
#include <QString>

/// A search as a search file holds it.
struct StoredSearch {
    SearchOptions options;
    RequestPrefs prefs;
    FundListe list;
    MimeTypeList mimeTypes; ///< the types of the items; the file has no list of them
};

namespace searchFile {

/// A line that was not understood.
struct SkippedLine {
    enum Why {
        NoKey, ///< neither a key nor "Results:"
        UnknownKey, ///< `text` is the key
        NoUrl, ///< an item line without a usable URL
    };
    qint64 number = 0; ///< from 1
    Why why = NoKey;
    QByteArray text; ///< the beginning of the line, or of the key
};

enum class LoadError {
    None,
    CannotOpen,
    CannotRead,
    NotASearchFile, ///< no line was understood
    Truncated, ///< a line is cut off or too long; the lines before it were loaded
};

/// Whether a search was loaded, whole or in part.
[[nodiscard]] bool isUsable(LoadError error);

struct LoadResult {
    LoadError error = LoadError::None;
    FileError reason; ///< for `CannotOpen` and `CannotRead`
    QList<SkippedLine> skipped; ///< the first hundred
    qint64 skippedCount = 0; ///< the number of all skipped lines
};

} // namespace searchFile

/// Reads a search file into a search, in steps, so that other events can be handled in between.
class SearchFileReader {
public:
    /// `search` must outlive the reader and hold no items. Options and preferences that the file does not name keep
    /// their values.
    SearchFileReader(const QString& fileName, StoredSearch& search);

    /// Reads the next lines. Returns false when the reading has ended.
    [[nodiscard]] bool readSome();
    /// Complete once `readSome` has returned false.
    [[nodiscard]] const searchFile::LoadResult& result() const { return m_result; }

private:
    [[nodiscard]] bool readLine();
    [[nodiscard]] bool isHopeless() const;
    void finish(bool whole);
    void takeLine(QByteArrayView line);
    void takeHeaderLine(const QByteArray& line);
    void takeItem(QByteArrayView line);
    void skip(searchFile::SkippedLine::Why why, QByteArrayView text);

    QFile m_file;
    LineReader m_lines;
    StoredSearch& m_search;
    searchFile::LoadResult m_result;
    qint64 m_number = 0;
    bool m_inResults = false;
    bool m_knewSomething = false;
};

namespace searchFile {

/// Loads a whole file into `search`, which must be new.
[[nodiscard]] LoadResult load(const QString& fileName, StoredSearch& search);

} // namespace searchFile
