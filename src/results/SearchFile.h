// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"

#include <QString>

#include <optional>

/// Search files (`*.twk`): lines of search options, lines of request preferences, the line "Results:", and a line for
/// each found item in the order of the list.
namespace SearchFile {

/// The line between the options and the items.
constexpr QByteArrayView resultsMark = "Results:";

/// The nine fields of an item, joined by TAB: URL, MIME type, size, depth, processing state, HTTP status, reference
/// type number, language, referring URL. A byte that would break the line is percent-encoded.
[[nodiscard]] QByteArray itemLine(const FundStück& item);
/// Reads an item line. Missing fields are empty, number fields without a number 0. Nothing without a
/// URL, or with one that is too long to be recorded.
[[nodiscard]] std::optional<FundStück> itemFrom(const QByteArray& line);

/// Replaces the file as a whole. Returns the system's error text on failure, which leaves an old file untouched.
[[nodiscard]] std::optional<QString> save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

} // namespace SearchFile
