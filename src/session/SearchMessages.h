// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Seams.h"
#include "crawl/FetchReport.h"
#include "crawl/SearchLimits.h"

#include <QObject>

class SearchRun;
class Session;

/// Tells the user how a search has ended where the status bar would not explain it: the start page could not be
/// reached, or the search has grown to its limit.
class SearchMessages final : public QObject {
    Q_OBJECT

public:
    /// `session` must outlive the object.
    SearchMessages(Session& session, const Seams& seams);

    /// Why a search has stopped by itself.
    [[nodiscard]] static QString limitText(
        SearchLimit limit, const SearchLimits& limits, const LanguageTable& language);

private:
    void onFinished();

    Session& m_session;
    Seams m_seams;
    FetchReport m_startReport; ///< the last one of the list's first item
};
