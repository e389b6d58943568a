// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/CommandLine.h"

/// Options that several commands take.
namespace sharedOptions {

inline constexpr Option quiet { .name = "quiet", .letter = 'q', .help = "Show no progress." };
inline constexpr Option cookies {
    .name = "cookies", .value = "DIR", .help = "The cookie folder. Default: the user's own."
};
inline constexpr Option timeLimit {
    .name = "time-limit", .value = "S", .help = "Give up after S seconds without a byte. Default: never."
};

} // namespace sharedOptions
