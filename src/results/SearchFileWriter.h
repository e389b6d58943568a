// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/ListWalk.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"
#include "results/FileReplacement.h"

#include <QString>

#include <optional>

/// Writes a search file in steps, so that other events can be handled in between. An old file is replaced in one step
/// at the end. An item that changes meanwhile is written as it is when its line is written.
class SearchFileWriter {
public:
    /// Writes the options and preferences as they are now. The list must outlive the writer.
    SearchFileWriter(
        const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

    /// Writes the next items. Returns true when all are written or writing has failed.
    [[nodiscard]] bool writeSome();
    /// As `FileReplacement::commit`.
    [[nodiscard]] std::optional<FileError> commit() { return m_file.commit(); }

private:
    FileReplacement m_file;
    ListWalk<const FundListe> m_walk;
};

namespace searchFile {

/// Writes a whole search file. Returns why that failed; an old file is then unchanged.
[[nodiscard]] std::optional<FileError> save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

} // namespace searchFile
