// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/import.h"
#include "requests/FirefoxDatabase.h"

/// A database.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Any number of rows may be computed from a few bytes; the reader ends them after five million instructions.
    constexpr qint64 mostRows = 5'000'000;
    importAll(std::make_unique<FirefoxDatabase>(fileWith(Input(data, size).rest())), mostRows);
    return 0;
}
