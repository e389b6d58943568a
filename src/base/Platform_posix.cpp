// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Whether an open file is an ordinary one that nobody else has locked. The lock holds until the file is closed.
bool isOrdinaryAndLocked(int handle)
{
    struct stat info { };
    if (fstat(handle, &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    // Some network file systems have no locks. That is no reason to refuse the file.
    return flock(handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// The memory limit of the control group that the process is in, in bytes; 0 when it has none.
qint64 controlGroupLimit()
{
    QFile membership(QStringLiteral("/proc/self/cgroup"));
    constexpr QByteArrayView unified = "0::";
    const QByteArray line = membership.open(QIODevice::ReadOnly) ? membership.readLine().trimmed() : QByteArray();
    if (!line.startsWith(unified))
        return 0;
    QFile limit(QLatin1String("/sys/fs/cgroup") + QFile::decodeName(line.sliced(unified.size()))
        + QLatin1String("/memory.max"));
    // The word "max" stands for no limit.
    return limit.open(QIODevice::ReadOnly) ? limit.readLine().trimmed().toLongLong() : 0;
}

} // namespace

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
    // Folders of the newest versions, of older ones, of the Snap package and of the Flatpak package.
    for (const char* folder : { ".config/mozilla/firefox", ".mozilla/firefox", "snap/firefox/common/.mozilla/firefox",
             ".var/app/org.mozilla.firefox/.mozilla/firefox" }) {
        QString path = QDir::home().filePath(QString::fromLatin1(folder));
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

void keepFromOthers(const QString& folder)
{
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

qint64 memorySize()
{
    qint64 size = qint64 { sysconf(_SC_PHYS_PAGES) } * sysconf(_SC_PAGESIZE);
    rlimit space {};
    if (getrlimit(RLIMIT_AS, &space) == 0 && space.rlim_cur != RLIM_INFINITY)
        size = std::min(size, static_cast<qint64>(space.rlim_cur));
    if (const qint64 limit = controlGroupLimit(); limit > 0)
        size = std::min(size, limit);
    return size;
}

bool isSuperuser()
{
    return geteuid() == 0;
}

bool openToWrite(QFile& file, const QString& path, bool replaces)
{
    // O_NONBLOCK: opening a pipe must not wait for a reader.
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | (replaces ? 0 : O_EXCL);
    const int handle = open(QFile::encodeName(path).constData(), flags, 0666);
    if (handle < 0)
        return false;
    if (isOrdinaryAndLocked(handle) && ftruncate(handle, 0) == 0
        && file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return true;
    close(handle);
    return false;
}

void markAsFromInternet(const QString&)
{
    // There is no mark that programs agree on.
}

void startSync(const QFileDevice& file)
{
    // The kernel writes pages that will not be needed any more back at once.
    posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
}

void addRecentDocument(const QString&)
{
    // There is no system function; each desktop keeps a list of its own.
}

} // namespace platform
