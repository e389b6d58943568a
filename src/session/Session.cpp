// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Session.h"

#include "base/Platform.h"
#include "base/folders.h"

#include <QDir>

Session::Session()
    : requestProfile(requestPrefs, cookies, web)
    , connections(web)
    , search(foundItems, requestProfile, connections)
    , downloads(requestProfile, connections)
{
    // Easier to change than the greatest number, and deeper than nearly every search.
    filter.depth.max = 99;
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
