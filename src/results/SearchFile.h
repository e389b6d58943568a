// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <QByteArray>

#include <optional>

/// Search files (`*.twk`): lines of search options, lines of request preferences, the line "Results:", and a line for
/// each found item in the order of the list.
namespace SearchFile {

/// The line between the options and the items.
constexpr QByteArrayView resultsMark = "Results:";

/// The nine fields of an item, joined by TAB: URL, MIME type, size, depth, processing state, HTTP status, reference
/// type number, language, referring URL. A byte that would break the line is percent-encoded.
[[nodiscard]] QByteArray itemLine(const FundStück& item);
/// The same at the end of `text`.
void appendItemLine(QByteArray& text, const FundStück& item);
/// Reads an item line. Missing fields are empty, number fields without a number 0. Nothing without a URL, or with one
/// that is too long to be recorded. Texts that are equal to those of `like` share their bytes: neighbouring items
/// mostly have the same type and referring URL.
[[nodiscard]] std::optional<FundStück> itemFrom(QByteArrayView line, const FundStück& like = {});

} // namespace SearchFile
