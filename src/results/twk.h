// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"
#include "crawl/ItemFetch.h"
#include "results/SearchFileReader.h"

#include <QString>

class LanguageTable;

/// How found items and their states are worded.
namespace twk {

/// The name of a kind of reference, in views and exports of every language; empty for a number that has none.
[[nodiscard]] QString referenceTypeName(ReferenzTyp typ);
/// The kind of reference of a name; unknown for any other text.
[[nodiscard]] ReferenzTyp referenceTypeFrom(QStringView name);

/// What was wrong with a search file, as one line; empty when nothing was.
[[nodiscard]] QString errorText(const SearchFile::LoadResult& result, const LanguageTable& language);
/// What was not understood in a line of a search file.
[[nodiscard]] QString warningText(const SearchFile::SkippedLine& line, const LanguageTable& language);

/// What the status column says of a fetch event.
[[nodiscard]] QString stateText(const FetchReport& report, const LanguageTable& language);

} // namespace twk
