// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

/// How the program speaks to servers. The rules are handed on by reference, so a change holds from the next exchange
/// on. Code asks for the rule that it needs.
struct WebRules {
    /// An exchange that gets no byte for so long ends; 0 means no limit.
    std::chrono::seconds silenceLimit { 0 };
    /// Cookies follow RFC 6265 and have a store of their own.
    bool keepsWebCookies = false;
};
