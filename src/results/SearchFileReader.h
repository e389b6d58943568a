// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"
#include "results/MimeListe.h"

#include <QFile>
#include <QList>
#include <QString>

/// A search with everything that a search file keeps of it.
struct StoredSearch {
    SearchOptions options;
    RequestPrefs prefs;
    FundListe list;
    MimeListe mimeTypes; ///< those of the items; not kept in the file, but gathered from it
};

namespace SearchFile {

/// A line that was passed over.
struct SkippedLine {
    enum Why {
        NoKey, ///< neither a key nor "Results:"
        UnknownKey, ///< `text` is the key
        NoUrl, ///< an item line without a URL
    };
    qint64 number = 0; ///< from 1
    Why why = NoKey;
    QByteArray text; ///< its beginning, to tell it by
};

enum class LoadError {
    None,
    CannotOpen,
    CannotRead,
    NotASearchFile, ///< not one line of it is known
    Truncated, ///< a line breaks off, or never ends; whatever stands before was loaded
};

/// Whether a file gave a search that can be shown.
[[nodiscard]] bool isUsable(LoadError error);

struct LoadResult {
    LoadError error = LoadError::None;
    QString systemText; ///< what the system says of `CannotOpen` and `CannotRead`
    QList<SkippedLine> skipped; ///< the first hundred
    qint64 skippedCount = 0; ///< how many there were
};

} // namespace SearchFile

/// Reads a search file into a search. A large file takes many steps, with room for other events between them.
class SearchFileReader {
public:
    /// `search`, which must outlive the reading, holds no items yet. What the file does not name stays as it is.
    SearchFileReader(const QString& fileName, StoredSearch& search);

    /// Reads for about so many milliseconds; true when there is no more to read.
    [[nodiscard]] bool readFor(int milliseconds);
    /// Complete when `readFor` has returned true.
    [[nodiscard]] const SearchFile::LoadResult& result() const { return m_result; }

private:
    [[nodiscard]] bool readLine();
    [[nodiscard]] bool isHopeless() const;
    void finish(bool whole);
    void takeLine(QByteArrayView line);
    void takeHeaderLine(const QByteArray& line);
    void takeItem(QByteArrayView line);
    void skip(SearchFile::SkippedLine::Why why, QByteArrayView text);

    QFile m_file;
    LineReader m_lines;
    StoredSearch& m_search;
    SearchFile::LoadResult m_result;
    qint64 m_number = 0;
    bool m_inResults = false;
    bool m_knewSomething = false;
};

namespace SearchFile {

/// Loads a whole file into `search`, which must be new.
[[nodiscard]] LoadResult load(const QString& fileName, StoredSearch& search);

} // namespace SearchFile
