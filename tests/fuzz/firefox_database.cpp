// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/import.h"
#include "requests/FirefoxDatabase.h"

/// Input: a database.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A few bytes can define a query with any number of rows. The reader ends it after five million instructions.
    constexpr qint64 mostRows = 5'000'000;
    importAll(std::make_unique<FirefoxDatabase>(fileWith(Input(data, size).rest())), mostRows);
    return 0;
}
