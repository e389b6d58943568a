// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "downloads/DownloadEntry.h"

class LanguageTable;

/// The texts that show a download entry.
namespace entryText {

/// The file name in the entry's URL.
[[nodiscard]] QString fileName(const DownloadEntry& entry);
[[nodiscard]] QString status(const DownloadEntry& entry, const LanguageTable& language);
/// The status with all that is known of a failure.
[[nodiscard]] QString reason(const DownloadEntry& entry, const LanguageTable& language);
/// The received bytes; empty before the body.
[[nodiscard]] QString received(const DownloadEntry& entry);
/// The size in bytes; "?" when unknown.
[[nodiscard]] QString size(const DownloadEntry& entry);
/// A percentage, or a ratio with two decimal places; "?" for an unknown size, empty before the body.
[[nodiscard]] QString progress(const DownloadEntry& entry, bool inPercent);

} // namespace entryText
