// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Platform.h"

/// How large a search may grow. It stops by itself when it reaches one of them, since a site may generate URLs without
/// end.
struct SearchLimits {
    /// How many items the list may have.
    qint64 items = 10'000'000;
    /// How much memory the items may take, in bytes: half of the machine's.
    qint64 bytes = platform::memorySize() / 2;
};

enum class SearchLimit { Items, Bytes };
