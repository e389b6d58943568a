// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"
#include "base/Seams.h"
#include "base/StepQueue.h"

#include <QByteArray>
#include <QList>

#include <vector>

class DownloadQueue;
class FoundModel;
class FoundsView;
struct FundStück;

/// The commands on the rows of the results list. They work on the selected or on the marked rows. Those that take long
/// with many rows run between other events, on the rows as they were when the command was given.
class RowCommands {
public:
    using Items = std::vector<const FundStück*>;

    /// `model`, `view` and `downloads` must outlive the commands.
    RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads, const Seams& seams);

    /// Opens the URLs of the marked or the selected rows in the user's browser. Before many pages are opened, the user
    /// is asked. URLs that must not be opened are left out, and the user is told how many.
    void open(bool marked);
    /// Opens the URL of one row, from 0, in the same way.
    void openRow(int row);
    /// Adds the URLs of the marked or the selected rows to the download list. The expected size is the number that the
    /// list shows, whatever its unit.
    void download(bool marked);
    /// Puts the URLs of the marked or the selected rows on the clipboard, one a line.
    void copy(bool marked);
    /// Sets or removes the marks of the selected rows.
    void setMarked(bool marked) const;
    void selectAll() const;
    void invertSelection() const;
    /// Adds the marked rows to the selection.
    void selectMarked() const;

    /// Completes the commands that are still running. Call it before the list is emptied.
    void finish() { m_work.finish(); }

    /// The URLs of the marked or the selected rows, in the order of the list.
    [[nodiscard]] QList<QByteArray> urls(bool marked) const;
    // The items of all rows, or of the selected ones, in the order of the list. They live until the list is emptied.
    [[nodiscard]] Items allItems() const;
    [[nodiscard]] Items selectedItems() const { return items(chosen(false)); }
    [[nodiscard]] qint64 selectedCount() const;

private:
    [[nodiscard]] RowRuns chosen(bool marked) const;
    [[nodiscard]] Items items(const RowRuns& rows) const;
    void openUrls(const QList<QByteArray>& all);
    void openAll(const QList<QByteArray>& urls);
    void tellNotOpened(const QList<QByteArray>& urls);

    FoundModel& m_model;
    FoundsView& m_view;
    DownloadQueue& m_downloads;
    Seams m_seams;
    StepQueue m_work;
    StepQueue m_opening; ///< a queue of its own: opening a page may let other events pass
};
