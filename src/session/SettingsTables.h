// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StoredSetting.h"

#include <vector>

class Session;

/// The keys of the two settings files, each file's in the order in which they are written.
namespace settingsTables {

/// `tarnwick.ini`, beside the keys of the search options and of the request preferences. Bytes in the system code page.
[[nodiscard]] const std::vector<StoredSetting<Session>>& prescribed();
/// `views.ini`, which holds the settings that `tarnwick.ini` has no keys for. It is read second. Paths are UTF-8.
[[nodiscard]] const std::vector<StoredSetting<Session>>& additional();

} // namespace settingsTables
