// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

/// The rows from `first` to `last`, counted from 0, both included.
struct RowRun {
    int first = 0;
    int last = 0;
    bool operator==(const RowRun&) const = default;
};

/// A set of rows: runs in ascending order with gaps between them. A million selected rows are mostly one run.
using RowRuns = std::vector<RowRun>;

/// The same rows as proper runs. `runs` may be in any order and overlap.
[[nodiscard]] RowRuns mergedRuns(RowRuns runs);
/// The rows below `rowCount` that are not in `runs`.
[[nodiscard]] RowRuns invertedRuns(const RowRuns& runs, int rowCount);
