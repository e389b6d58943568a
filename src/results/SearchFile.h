// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"

#include <QList>
#include <QString>

#include <optional>

/// A search with everything that a search file keeps of it.
struct StoredSearch {
    SearchOptions options;
    RequestPrefs prefs;
    FundListe list;
};

/// Search files (`*.twk`): lines of search options, lines of request preferences, the line "Results:", and a line for
/// each found item in the order of the list.
namespace SearchFile {

/// The nine fields of an item, joined by TAB: URL, MIME type, size, depth, processing state, HTTP status, reference
/// type number, language, referring URL. A byte that would break the line is percent-encoded.
[[nodiscard]] QByteArray itemLine(const FundStück& item);
/// Reads an item line. Missing fields are empty, number fields without a number 0. Nothing without a URL.
[[nodiscard]] std::optional<FundStück> itemFrom(const QByteArray& line);

/// Replaces the file as a whole. Returns the system's error text on failure, which leaves an old file untouched.
[[nodiscard]] std::optional<QString> save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

/// A line that was passed over.
struct SkippedLine {
    enum Why {
        NoKey, ///< neither a key nor "Results:"
        UnknownKey, ///< `text` is the key
        NoUrl, ///< an item line without a URL
    };
    qint64 number = 0; ///< from 1
    Why why = NoKey;
    QByteArray text;
};

enum class LoadError {
    None,
    CannotOpen,
    CannotRead,
    NotASearchFile, ///< not one line of it is known
    Truncated, ///< its last line breaks off; whatever stands before was loaded
};

struct LoadResult {
    LoadError error = LoadError::None;
    QString systemText; ///< what the system says of `CannotOpen` and `CannotRead`
    QList<SkippedLine> skipped;
};

/// Loads a file into `search`, which must be new.
[[nodiscard]] LoadResult load(const QString& fileName, StoredSearch& search);

} // namespace SearchFile
