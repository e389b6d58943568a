// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FetchReport.h"

#include <QHashFunctions>

#include <unordered_set>

/// Fetch reports that items refer to, each kept once: millions of fetches fail for the same few reasons.
class FetchReports {
public:
    /// Returns the kept copy of a report, which lives until the reports are cleared. Of the detail, which a server can
    /// make as long as a header, 1000 bytes are kept.
    [[nodiscard]] const FetchReport* keep(FetchReport report);
    void clear() { m_reports.clear(); }
    /// Frees some of the reports; false if none is left.
    bool clearSome();
    void swap(FetchReports& other) noexcept { m_reports.swap(other.m_reports); }

private:
    struct Hash {
        size_t operator()(const FetchReport& report) const
        {
            return qHashMulti(static_cast<size_t>(report.event), report.detail, static_cast<int>(report.failure.kind),
                report.failure.number, report.failure.detail);
        }
    };

    std::unordered_set<FetchReport, Hash> m_reports;
};
