// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Session.h"

#include "base/allgemein.h"

#include <QDir>

Session::Session()
    : requestProfile(requestPrefs, cookies)
    , search(foundItems, requestProfile)
{
}

QString Session::cookieFolder(const QString& chosen)
{
    return chosen.isEmpty() ? allgemein::dataFolder() + QLatin1String("Cookies") : QDir(chosen).absolutePath();
}
