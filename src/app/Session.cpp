// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Session.h"

#include "base/Platform.h"
#include "base/allgemein.h"

#include <QDir>

Session::Session()
    : requestProfile(requestPrefs, cookies)
    , search(foundItems, requestProfile)
    , downloads(requestProfile)
{
    // Wide enough that switching a range on for the first time does not empty the list.
    filter.depth.max = 99;
    filter.size.max = 999'999'999;
    downloads.settings().target = allgemein::withTrailingSeparator(platform::defaultDownloadFolder());
}

void Session::setFollowRelocation(bool on)
{
    search.setFollowRelocation(on);
    downloads.settings().followRelocation = on;
}

QString Session::cookieFolder(const QString& chosen)
{
    return chosen.isEmpty() ? allgemein::dataFolder() + QLatin1String("Cookies") : QDir(chosen).absolutePath();
}
