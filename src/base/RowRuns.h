// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

/// Neighbouring rows from `first` to `last`, counted from 0, both included.
struct RowRun {
    int first = 0;
    int last = 0;
    bool operator==(const RowRun&) const = default;
};

/// A choice of rows: runs in ascending order with gaps between them. Commands work on runs, since a million chosen rows
/// are mostly one.
using RowRuns = std::vector<RowRun>;

/// The runs that cover the same rows as `runs`, which may come in any order and overlap.
[[nodiscard]] RowRuns mergedRuns(RowRuns runs);
/// The rows below `rowCount` that are not in `runs`.
[[nodiscard]] RowRuns invertedRuns(const RowRuns& runs, int rowCount);
