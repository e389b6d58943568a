// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Session.h"

#include "base/allgemein.h"

Session::Session()
    : requestProfile(requestPrefs, cookies)
    , search(foundItems, requestProfile)
{
}

QString Session::userCookieFolder()
{
    return allgemein::withTrailingSeparator(allgemein::dataFolder() + QLatin1String("Cookies"));
}
