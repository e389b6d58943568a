// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/PrintOptions.h"
#include "crawl/SearchOptions.h"
#include "requests/RequestPrefs.h"

#include <QString>
#include <QStringList>

#include <optional>

class LanguageTable;

/// What `tarnwick-cli search` was told to do.
struct SearchArguments {
    SearchOptions options;
    bool unlimited = false; ///< nothing bounds the search but the web itself
    RequestPrefs prefs;
    bool followRelocation = true;
    QString cookieFolder; ///< empty for the user's own
    QString saveTo; ///< empty when nothing is saved
    PrintOptions printing;
    bool quiet = false;

    /// Nothing when help was asked for and printed. Throws UsageError.
    [[nodiscard]] static std::optional<SearchArguments> from(
        const QStringList& arguments, const LanguageTable& language);
};
