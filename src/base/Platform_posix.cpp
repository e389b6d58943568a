// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QStandardPaths>

namespace platform {

QString applicationDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString defaultDownloadFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
}

bool isReservedFileName(QByteArrayView)
{
    return false;
}

void addRecentDocument(const QString&)
{
    // Desktops here keep such lists in files of their own; there is no system function.
}

} // namespace platform
