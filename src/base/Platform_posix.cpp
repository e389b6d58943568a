// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>
#include <QFileDevice>
#include <QProcess>
#include <QStandardPaths>

#include <fcntl.h>
#include <unistd.h>

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

QString programPattern()
{
    return QStringLiteral("*");
}

bool isRunByShell(const QString&)
{
    return false;
}

bool startProgram(const QString& program, const QString& arguments)
{
    return QProcess::startDetached(program, QProcess::splitCommand(arguments));
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

bool isSuperuser()
{
    return geteuid() == 0;
}

void startSync(const QFileDevice& file)
{
    // What will not be needed in memory is written back at once.
    posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
}

void addRecentDocument(const QString&)
{
    // Desktops here keep such lists in files of their own; there is no system function.
}

} // namespace platform
