// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "base/StepQueue.h"
#include "results/ListFormat.h"

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class CurrentSearch;
struct FileError;
class ListReader;

/// The commands that take lists of URLs into the search, and write them for other programs.
class ListFiles final : public QObject {
    Q_OBJECT

public:
    /// Items in the order in which they are to be written.
    using Items = std::vector<const FundStück*>;

    /// The rows that can be written.
    struct Rows {
        std::function<Items()> all;
        std::function<Items()> selected;
        qint64 selectedCount = 0;
    };

    /// `search` must outlive it.
    ListFiles(CurrentSearch& search, const Seams& seams);

    void askToImport(listFormat::Format format);
    /// Writes all rows, or the selected ones when there are several and the user says so.
    void askToExport(listFormat::Format format, const Rows& rows);
    /// Writes at once whatever is still to be written. False when that fails, which is told.
    [[nodiscard]] bool finish();

private:
    void openDialog(listFormat::Format format);
    void saveDialog(listFormat::Format format, std::function<Items()> items);
    void write(const QString& fileName, listFormat::Format format, Items items);
    void takeImported(const QString& fileName, const ListReader& list);
    void complain(const char* doing, const QString& fileName, const FileError& error);

    CurrentSearch& m_search;
    Seams m_seams;
    StepQueue m_writing;
    bool m_hasNotedCsv = false;
    bool m_hasFailed = false; ///< an export, since `finish` began
};
