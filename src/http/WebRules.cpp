// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/WebRules.h"

WebRules WebRules::modern()
{
    WebRules rules;
    rules.silenceLimit = std::chrono::seconds(30);
    rules.connectLimit = std::chrono::seconds(20);
    rules.keepsConnections = true;
    rules.keepsWebCookies = true;
    rules.followsEveryRelocation = true;
    rules.refusesErrorPages = true;
    return rules;
}
