// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/CommandLine.h"

struct WebRules;

/// The options that say how the program speaks to servers.
namespace webOptions {

/// Without --modern none but --time-limit is taken.
extern const OptionGroup group;

/// The rules that the options ask for. Throws UsageError.
[[nodiscard]] WebRules rulesFrom(const CommandLine& line);

} // namespace webOptions
