// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileReplacement.h"
#include "crawl/ListWalk.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"

#include <QString>

#include <optional>

/// Writes a search to a file, which is replaced as a whole at the end. A large search takes many steps, with room for
/// other events between them: an item that changes meanwhile is written as it is when its turn comes.
class SearchFileWriter {
public:
    /// The options and preferences are written as they are now; the list must outlive the writing.
    SearchFileWriter(
        const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

    /// Must be told before an item is taken out of the list.
    void removing(const FundKnoten* knoten) { m_walk.removing(knoten); }

    /// Writes the next items; true when there are none, or writing has failed.
    [[nodiscard]] bool writeSome();
    /// Puts the file in its place. What the system says if that fails, or if writing has failed before.
    [[nodiscard]] std::optional<QString> commit() { return m_file.commit(); }

private:
    FileReplacement m_file;
    ListWalk m_walk;
};

namespace SearchFile {

/// Replaces the file as a whole. Returns the system's error text on failure, which leaves an old file untouched.
[[nodiscard]] std::optional<QString> save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list);

} // namespace SearchFile
