// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/import.h"
#include "requests/CookiesTxt.h"

/// Input: a cookies.txt.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content = Input(data, size).rest();
    importAll(std::make_unique<CookiesTxt>(fileWith(content)), content.count('\n') + 1);
    return 0;
}
