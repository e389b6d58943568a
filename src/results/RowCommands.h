// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"
#include "base/StepQueue.h"

#include <QByteArray>
#include <QList>

#include <vector>

class DownloadQueue;
class FoundModel;
class FoundsView;
class LanguageTable;
class Messages;
class Shell;
struct FundStück;

/// The commands on the rows of the results list. A row is chosen by being selected or by being marked. What may take
/// long with many rows goes on between other events, with the rows as they were when the command was given.
class RowCommands {
public:
    using Items = std::vector<const FundStück*>;

    /// All of them must outlive it.
    RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads, const LanguageTable& language,
        Messages& messages, Shell& shell);

    /// Opens the URLs of the marked or the selected rows in the user's browser. Of many the user is asked whether they
    /// are meant; those that the system is not handed are told of.
    void open(bool marked);
    /// Hands the URLs of the marked or the selected rows to the download list. The size that it is to expect is the
    /// number that the list shows, whatever its unit.
    void download(bool marked);
    /// Puts the URLs of the marked or the selected rows on the clipboard, a line each.
    void copy(bool marked);
    /// Marks the selected rows, or takes their marks away.
    void setMarked(bool marked) const;
    void selectAll() const;
    void invertSelection() const;
    /// Selects the marked rows beside those that are selected.
    void selectMarked() const;

    /// Does at once what goes on between other events. Call it before the list is emptied.
    void finish() { m_work.finish(); }

    /// The URLs of the marked or the selected rows, in the order of the list.
    [[nodiscard]] QList<QByteArray> urls(bool marked) const;
    /// The items of all rows, or of the selected ones, in the order of the list. They live until it is emptied.
    [[nodiscard]] Items allItems() const;
    [[nodiscard]] Items selectedItems() const { return items(chosen(false)); }
    [[nodiscard]] qint64 selectedCount() const;

private:
    [[nodiscard]] RowRuns chosen(bool marked) const;
    [[nodiscard]] Items items(const RowRuns& rows) const;
    void openAll(const QList<QByteArray>& urls);
    void tellNotOpened(const QList<QByteArray>& urls);

    FoundModel& m_model;
    FoundsView& m_view;
    DownloadQueue& m_downloads;
    const LanguageTable& m_language;
    Messages& m_messages;
    Shell& m_shell;
    StepQueue m_work;
    StepQueue m_opening; ///< apart, since the desktop may let events pass meanwhile
};
