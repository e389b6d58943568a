// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/RowRuns.h"

class FoundModel;
class FoundsView;

/// The commands on the rows of the results list. A row is chosen by being selected or by being marked.
class RowCommands {
public:
    /// Both must outlive it.
    RowCommands(FoundModel& model, FoundsView& view);

    /// Puts the URLs of the marked or the selected rows on the clipboard, a line each.
    void copy(bool marked) const;
    /// Marks the selected rows, or takes their marks away.
    void setMarked(bool marked) const;
    void selectAll() const;
    void invertSelection() const;
    /// Selects the marked rows beside those that are selected.
    void selectMarked() const;

private:
    FoundModel& m_model;
    FoundsView& m_view;
};
