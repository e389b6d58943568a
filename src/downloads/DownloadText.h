// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/DownloadEntry.h"

class LanguageTable;

/// How download entries are worded.
namespace downloadText {

/// The file name of the entry's URL.
[[nodiscard]] QString fileName(const DownloadEntry& entry);
[[nodiscard]] QString status(const DownloadEntry& entry, const LanguageTable& language);
/// Empty before the body.
[[nodiscard]] QString received(const DownloadEntry& entry);
/// "?" when unknown.
[[nodiscard]] QString size(const DownloadEntry& entry);
/// A ratio with two places, or a percentage; "?" for an unknown size, empty before the body.
[[nodiscard]] QString progress(const DownloadEntry& entry, bool inPercent);

} // namespace downloadText
