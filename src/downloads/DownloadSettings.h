// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/TargetName.h"

#include <QString>

/// The user's settings for downloads, with the defaults of a first start.
struct DownloadSettings {
    static constexpr int mostSlots = 10;

    QString target; ///< the target folder, with trailing separator
    NamingRules naming;
    bool overwrite = false; ///< replace files that exist
    bool refuseErrors = false; ///< save nothing that comes with an HTTP status of 400 or more
    bool startImmediately = true; ///< queue entries when they are added
    bool active = true; ///< start waiting entries
    bool removeFinished = false; ///< take entries off the list when they are complete
    bool followRelocation = true; ///< take up the new address of a relocated entry
    bool usePercent = true; ///< show progress in percent instead of as a ratio
    bool relHTMLref = false; ///< kept in the settings file, but without effect
    int maxDL = 3; ///< the most transfers that run at once, 1 to `mostSlots`
};
