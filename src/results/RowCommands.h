// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"

class DownloadQueue;
class FoundModel;
class FoundsView;

/// The commands on the rows of the results list. A row is chosen by being selected or by being marked.
class RowCommands {
public:
    /// All of them must outlive it.
    RowCommands(FoundModel& model, FoundsView& view, DownloadQueue& downloads);

    /// Hands the URLs of the marked or the selected rows to the download list. The size that it is to expect is the
    /// number that the list shows, whatever its unit.
    void download(bool marked) const;
    /// Puts the URLs of the marked or the selected rows on the clipboard, a line each.
    void copy(bool marked) const;
    /// Marks the selected rows, or takes their marks away.
    void setMarked(bool marked) const;
    void selectAll() const;
    void invertSelection() const;
    /// Selects the marked rows beside those that are selected.
    void selectMarked() const;

private:
    [[nodiscard]] RowRuns chosen(bool marked) const;

    FoundModel& m_model;
    FoundsView& m_view;
    DownloadQueue& m_downloads;
};
