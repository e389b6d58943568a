// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/SearchStatus.h"
#include "app/ViewState.h"
#include "app/WindowSettings.h"
#include "base/lang.h"
#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "crawl/SearchRun.h"
#include "downloads/DownloadQueue.h"
#include "requests/CookieStore.h"
#include "requests/RequestPrefs.h"
#include "requests/RequestProfile.h"
#include "results/ResultFilter.h"

/// One of everything that the program has while it runs, and the one place where these objects meet.
class Session {
public:
    Session();
    Q_DISABLE_COPY_MOVE(Session)

    LanguageTable language;
    RequestPrefs requestPrefs;
    CookieStore cookies;
    RequestProfile requestProfile;
    SearchOptions searchOptions;
    FundListe foundItems;
    SearchRun search;
    ResultFilter filter;
    DownloadQueue downloads;
    WindowSettings windows;
    ViewState views;
    /// The settings that are stored could not be read whole, and are not to be replaced.
    bool settingsAreUnread = false;

    /// Whether searches and downloads take up the new address of what has relocated.
    void setFollowRelocation(bool on);

    /// The cookie folder that was chosen, or the user's own when none was.
    [[nodiscard]] static QString cookieFolder(const QString& chosen);
};
