// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/lang.h"
#include "crawl/FundListe.h"
#include "crawl/SearchOptions.h"
#include "crawl/SearchRun.h"
#include "downloads/DownloadQueue.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "requests/CookieStore.h"
#include "requests/RequestPrefs.h"
#include "requests/RequestProfile.h"
#include "results/ResultFilter.h"
#include "session/SearchStatus.h"
#include "session/ViewState.h"
#include "session/WindowSettings.h"

/// Owns one of everything that the running program has, and wires these objects to each other.
class Session {
public:
    Session();
    Q_DISABLE_COPY_MOVE(Session)

    LanguageTable language;
    /// The preferences in force: the user's own, or those of the search file that was opened last.
    RequestPrefs requestPrefs;
    /// The preferences that the user last applied. Only these are saved.
    RequestPrefs ownRequestPrefs;
    CookieStore cookies;
    RequestProfile requestProfile;
    WebRules web;
    Connections connections;
    SearchOptions searchOptions;
    FundListe foundItems;
    SearchRun search;
    ResultFilter filter;
    DownloadQueue downloads;
    WindowSettings windows;
    ViewState views;
    /// The settings file could not be read to its end, so it must not be replaced.
    bool settingsAreUnread = false;

    /// Sets whether searches and downloads follow relocations.
    void setFollowRelocation(bool on);

    /// `chosen` as an absolute path, or the user's own cookie folder if `chosen` is empty.
    [[nodiscard]] static QString cookieFolder(const QString& chosen);
};
