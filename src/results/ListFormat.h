// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QByteArray>

#include <optional>

class LanguageTable;

/// Lists of found items for other programs, a line each, in the system code page: of URLs alone, or of the columns of
/// the results list with TABs between them ("CSV").
///
/// A spreadsheet program takes a text that begins with "=", "+", "-" or "@" for a formula and runs it, and may begin a
/// new cell at other places than at a TAB. So an apostrophe is put before such a sign, which these programs take for
/// the mark of a text. Reading takes it away again.
namespace listFormat {

enum class Format { Urls, Csv };

/// The line before the items: the names of the columns, or nothing for a list of URLs.
[[nodiscard]] QByteArray headerLine(Format format, const LanguageTable& language);
/// An item's line without its end. Sizes are in bytes, "?" for an unknown one.
[[nodiscard]] QByteArray itemLine(Format format, const FundStück& item);
/// The item of a line. One of a URL alone is not fetched yet, is of depth 0 and of an unknown kind. The URL of a line
/// with fewer columns stands in the last one, and nothing else is read. Nothing for a line without a usable URL.
[[nodiscard]] std::optional<FundStück> itemFrom(Format format, const QByteArray& line);
/// Whether the first line of a file names the columns: no URL is in the place of its URL.
[[nodiscard]] bool isHeaderLine(Format format, const QByteArray& line);

} // namespace listFormat
