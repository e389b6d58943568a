// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <memory>

#include <shlobj.h>

namespace platform {

QString applicationDataFolder()
{
    PWSTR path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &path);
    const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(path, &CoTaskMemFree);
    return SUCCEEDED(result) ? QDir::toNativeSeparators(QString::fromWCharArray(path)) : QString();
}

QString defaultDownloadFolder()
{
    return QStringLiteral("c:\\download");
}

bool isReservedFileName(QByteArrayView name)
{
    // A device name keeps its meaning with any extension and with blanks behind it; a colon names a stream or a drive.
    static constexpr std::array devices { "CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$" };
    const QByteArray stem =
        name.first(name.indexOf('.') < 0 ? name.size() : name.indexOf('.')).toByteArray().toUpper().trimmed();
    const bool port =
        stem.size() == 4 && (stem.startsWith("COM") || stem.startsWith("LPT")) && stem[3] >= '1' && stem[3] <= '9';
    return name.contains(':') || port || std::find(devices.begin(), devices.end(), stem) != devices.end();
}

void addRecentDocument(const QString& path)
{
    SHAddToRecentDocs(SHARD_PATHW, QDir::toNativeSeparators(path).utf16());
}

} // namespace platform
