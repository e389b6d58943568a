// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "console/ItemPrinter.h"
#include "results/ResultFilter.h"

class CommandParser;

/// The options that say which items are printed, and how: the same for every command that prints some.
struct PrintOptions {
    ItemFormat format = ItemFormat::Tsv;
    ResultFilter filter;

    static void addTo(CommandParser& parser);
    /// Throws UsageError.
    [[nodiscard]] static PrintOptions from(const CommandParser& parser);

    /// The options that say which items are meant, alone.
    static void addFilterTo(CommandParser& parser);
    /// Throws UsageError.
    [[nodiscard]] static ResultFilter filterFrom(const CommandParser& parser);
};
