// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/retryAfter.h"

#include <QDateTime>

/// Input: the value of a Retry-After field.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using std::chrono::seconds;
    const Input input(data, size);
    const QDateTime now({ 2029, 12, 31 }, { 23, 59, 0 }, Qt::UTC);
    const auto wait = retryAfter(input.rest(), now, seconds(300));
    require(!wait || (*wait >= seconds(0) && *wait <= seconds(300)), "a wait is within its bounds");
    const auto longer = retryAfter(input.rest(), now, seconds(100000));
    require(wait.has_value() == longer.has_value() && (!wait || *wait == qMin(*longer, seconds(300))),
        "the bound changes nothing but what exceeds it");
    return 0;
}
