// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>
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

std::optional<QString> registryText(const QString&, const QString&)
{
    return {};
}

QString firefoxProfilesFolder()
{
    // Of the newest packages, of all others, and of the two kinds of containers.
    for (const char* folder : { ".config/mozilla/firefox", ".mozilla/firefox", "snap/firefox/common/.mozilla/firefox",
             ".var/app/org.mozilla.firefox/.mozilla/firefox" }) {
        const QString path = QDir::home().filePath(QString::fromLatin1(folder));
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

void addRecentDocument(const QString&)
{
    // Desktops here keep such lists in files of their own; there is no system function.
}

} // namespace platform
