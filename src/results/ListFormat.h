// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QByteArray>

#include <optional>

class LanguageTable;

/// Lists of found items for other programs, one line an item, in the system code page. A line holds the URL alone, or
/// the columns of the results list separated by TABs ("CSV").
///
/// A spreadsheet program runs a cell that begins with "=", "+", "-" or "@" as a formula, and may begin a new cell at
/// other characters than a TAB. Therefore an apostrophe is written before such a character: it tells the program that
/// the cell is text. Reading removes the apostrophe.
namespace listFormat {

enum class Format { Urls, Csv };

/// The line before the items: the titles of the columns. Empty for a list of URLs.
[[nodiscard]] QByteArray headerLine(Format format, const LanguageTable& language);
/// An item's line without its line end. Sizes are in bytes, "?" for an unknown one.
[[nodiscard]] QByteArray itemLine(Format format, const FundStück& item);
/// Reads the item of a line; nullopt if the line has no usable URL. If the line has fewer columns than the results
/// list, the last one is taken for the URL and nothing else is read; the item is then not fetched and has depth 0.
[[nodiscard]] std::optional<FundStück> itemFrom(Format format, const QByteArray& line);
/// Whether the first line of a file holds the titles of the columns: it has no URL in the column of the URL.
[[nodiscard]] bool isHeaderLine(Format format, const QByteArray& line);

} // namespace listFormat
