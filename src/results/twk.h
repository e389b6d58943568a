// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"
#include "crawl/FetchReport.h"
#include "results/SearchFileReader.h"

#include <QString>

class LanguageTable;

/// The texts for found items, their states and what was wrong with their files.
namespace twk {

/// The name of a reference type, the same in every language; empty for a number without a name.
[[nodiscard]] QString referenceTypeName(ReferenceType type);
/// The reference type with this name; `Unknown` for any other text.
[[nodiscard]] ReferenceType referenceTypeFrom(QStringView name);

/// One line that says why a search file could not be loaded; empty if it could.
[[nodiscard]] QString errorText(const searchFile::LoadResult& result, const LanguageTable& language);
/// Says what was not understood in a line of a search file.
[[nodiscard]] QString warningText(const searchFile::SkippedLine& line, const LanguageTable& language);

/// The text of the status column for a fetch event.
[[nodiscard]] QString stateText(const FetchReport& report, const LanguageTable& language);

} // namespace twk
