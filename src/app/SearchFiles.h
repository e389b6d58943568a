// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/Seams.h"
#include "results/SearchFileReader.h"

#include <QObject>

class CurrentSearch;
class LanguageTable;

/// The commands that open and save the current search, with what they ask and tell the user.
class SearchFiles final : public QObject {
    Q_OBJECT

public:
    /// All of them, and what the seams refer to, must outlive it.
    SearchFiles(CurrentSearch& search, const LanguageTable& language, const Seams& seams);

    void open(const QString& fileName);
    void askToOpen();
    /// Saves to the search's own file, or asks for one.
    void save();
    void askToSave();
    /// Brings the saving to its end. False when that fails, which is told.
    [[nodiscard]] bool finish();

signals:
    /// A file's search is the current one now. `mimeTypes` are those of its items.
    void opened(const MimeListe& mimeTypes);

private:
    void takeOpened(const QString& fileName, const SearchFile::LoadResult& result, const MimeListe& mimeTypes);
    void warnOfSkippedLines(const QString& fileName, const SearchFile::LoadResult& result);
    void takeSaved(const QString& fileName, const std::optional<QString>& error);
    void complain(const char* titleKey, const QString& message);
    [[nodiscard]] QString text(const char* key) const;

    CurrentSearch& m_search;
    const LanguageTable& m_language;
    Seams m_seams;
    bool m_hasFailed = false; ///< a saving, since `finish` began
};
