// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLibrary>

/// Whether the tests of the Windows edition run on Wine instead of Windows.
inline bool isOnWine()
{
#ifdef Q_OS_WIN
    return QLibrary::resolve(QStringLiteral("ntdll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}
