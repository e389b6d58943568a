// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The version of this build.
namespace version {

/// The version with the commit that was built, as in "1.0.0 (0123456789ab)". A "+" behind the commit tells of changes
/// that were not committed. Without a commit, as in a source archive of unknown origin, the version alone.
[[nodiscard]] QString numberAndCommit();

/// Version, commit, and the running Qt, as in "1.0.0 (commit 0123456789ab, Qt 6.4.2)".
[[nodiscard]] QString details();

} // namespace version
