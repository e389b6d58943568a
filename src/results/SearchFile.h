// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QByteArray>

#include <optional>

/// Search files (`*.twk`): the lines of the search options, the lines of the request preferences, the line "Results:",
/// and one line for each found item in the order of the list.
namespace searchFile {

/// The line between the options and the items.
constexpr QByteArrayView resultsMark = "Results:";

/// The nine fields of an item, joined by TAB: URL, MIME type, size, depth, processing state, HTTP status, reference
/// type number, language, referring URL. A byte that would break the line is percent-encoded.
[[nodiscard]] QByteArray itemLine(const FundStück& item);
/// Appends the item line to `text`.
void appendItemLine(QByteArray& text, const FundStück& item);
/// Reads an item line; nullopt if the URL is missing or too long to be recorded. Other missing texts are empty, and
/// number fields without a number are 0. Texts that equal those of `like` share its bytes, to save memory: neighbouring
/// items mostly have the same type and referring URL.
[[nodiscard]] std::optional<FundStück> itemFrom(QByteArrayView line, const FundStück& like = {});

} // namespace searchFile
