// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FetchReports.h"

#include <utility>

const FetchReport* FetchReports::keep(FetchReport report)
{
    constexpr qsizetype longestDetail = 1000;
    if (report.detail.size() > longestDetail)
        report.detail = report.detail.left(longestDetail);
    if (report.failure.detail.size() > longestDetail)
        report.failure.detail = report.failure.detail.left(longestDetail);
    return &*m_reports.insert(std::move(report)).first;
}

bool FetchReports::clearSome()
{
    constexpr int atOnce = 10'000;
    for (int count = 0; count < atOnce && !m_reports.empty(); ++count)
        m_reports.erase(m_reports.begin());
    return !m_reports.empty();
}
