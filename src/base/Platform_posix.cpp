// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QStandardPaths>

namespace platform {

QString applicationDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

bool isReservedFileName(QByteArrayView)
{
    return false;
}

} // namespace platform
