// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/CommandLine.h"
#include "console/ItemPrinter.h"
#include "results/ResultFilter.h"

/// The options that choose items and how they are printed, alike in every command that takes them.
namespace itemOptions {

extern const OptionGroup format;
extern const OptionGroup filter;

/// The chosen format, or else the default: a table on a terminal, TAB-separated values otherwise. Throws UsageError.
[[nodiscard]] ItemFormat formatFrom(const CommandLine& line);
/// Throws UsageError.
[[nodiscard]] ResultFilter filterFrom(const CommandLine& line);

} // namespace itemOptions
