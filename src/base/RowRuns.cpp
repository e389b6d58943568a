// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RowRuns.h"

#include <algorithm>

RowRuns mergedRuns(RowRuns runs)
{
    std::sort(runs.begin(), runs.end(), [](const RowRun& a, const RowRun& b) { return a.first < b.first; });
    RowRuns merged;
    for (const RowRun& run : runs) {
        if (merged.empty() || run.first > merged.back().last + 1)
            merged.push_back(run);
        else
            merged.back().last = std::max(merged.back().last, run.last);
    }
    return merged;
}

RowRuns invertedRuns(const RowRuns& runs, int rowCount)
{
    RowRuns inverted;
    int next = 0;
    for (const RowRun& run : runs) {
        if (run.first > next)
            inverted.push_back({ next, run.first - 1 });
        next = run.last + 1;
    }
    if (next < rowCount)
        inverted.push_back({ next, rowCount - 1 });
    return inverted;
}
