// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "results/SearchFileReader.h"

#include <QObject>

class CurrentSearch;

/// The commands that open and save the current search, with their dialogs and messages.
class SearchFiles final : public QObject {
    Q_OBJECT

public:
    /// `search` must outlive it.
    SearchFiles(CurrentSearch& search, const Seams& seams);

    void open(const QString& fileName);
    void askToOpen();
    /// Saves to the search's own file, or asks for one.
    void save();
    void askToSave();
    /// Writes the rest of a save at once. False, with a message, when that fails.
    [[nodiscard]] bool finish();

signals:
    /// A file's search is the current one now. `mimeTypes` are those of its items.
    void opened(const MimeTypeList& mimeTypes);

private:
    void takeOpened(const QString& fileName, const searchFile::LoadResult& result, const MimeTypeList& mimeTypes);
    void warnOfSkippedLines(const QString& fileName, const searchFile::LoadResult& result);
    void takeSaved(const QString& fileName, const std::optional<FileError>& error);
    void complain(const char* titleKey, const QString& message);

    CurrentSearch& m_search;
    Seams m_seams;
    bool m_hasFailed = false; ///< whether a save has failed since `finish` was called
};
