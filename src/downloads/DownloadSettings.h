// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/TargetName.h"

#include <QString>

/// What the user wants of downloads. The defaults are those of a program that was never used.
struct DownloadSettings {
    static constexpr int mostSlots = 10;

    QString target; ///< the target folder, with trailing separator
    NamingRules naming;
    bool overwrite = false; ///< replace files that exist
    bool startImmediately = true; ///< queue entries when they are added
    bool active = true; ///< start waiting entries
    bool removeFinished = false; ///< take entries off the list when they are complete
    bool followRelocation = true; ///< take up the new address of a relocated entry
    bool usePercent = true; ///< show progress in percent instead of as a ratio
    bool relHTMLref = false; ///< kept for the user; nothing reads it
    int maxDL = 3; ///< how many transfers run at once, 1 to `mostSlots`
};
