// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/TargetFile.h"

#include "base/Platform.h"
#include "base/allgemein.h"
#include "base/folders.h"
#include "downloads/DownloadEntry.h"
#include "downloads/TargetName.h"
#include "downloads/WrittenFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool isLink(const QString& path)
{
    const QFileInfo info(path);
    return info.isSymbolicLink() || info.isJunction();
}

/// Creates one directory. If the path exists, but is no directory, this succeeds and creating the file in it fails.
bool makeDirectory(const QString& path)
{
    return QDir().mkdir(path) || (QFileInfo::exists(path) && !isLink(path));
}

/// Creates the target folder and the directories in it. Returns the innermost, with trailing separator; nothing when
/// one cannot be created.
std::optional<QString> makeDirectories(const QString& folder, const QByteArrayList& directories)
{
    if (!QDir().mkpath(folder) && !QFileInfo::exists(folder))
        return {};
    QString path = folder;
    for (const QByteArray& directory : directories) {
        path += allgemein::fromSystem(directory);
        if (!makeDirectory(path))
            return {};
        path = allgemein::withTrailingSeparator(path);
    }
    return path;
}

/// Whether the path is taken by something that must not be written to: a link, a folder, or a pipe or device, where
/// opening would wait for a reader.
bool isTakenByOther(const QString& path)
{
    return isLink(path) || !allgemein::canBeReplaced(path);
}

} // namespace

std::optional<DownloadStatus> TargetFile::open(
    const QString& folder, const TargetName& target, bool overwrite, const std::optional<WrittenFile>& own)
{
    if (target.refusal == TargetName::Refusal::Directory)
        return DownloadStatus::CannotCreateDirectory;
    const auto directory = makeDirectories(folder, target.directories);
    if (!directory)
        return DownloadStatus::CannotCreateDirectory;
    if (target.refusal)
        return DownloadStatus::CannotCreateFile;
    m_path = *directory + allgemein::fromSystem(target.name);
    const bool replaces = overwrite || (own && own->path == m_path && own->isUnchanged());
    if (!isTakenByOther(m_path) && platform::openToWrite(m_file, m_path, replaces))
        return {};
    return !replaces && QFileInfo::exists(m_path) ? DownloadStatus::FileExists : DownloadStatus::CannotCreateFile;
}

void TargetFile::close()
{
    if (!m_file.isOpen())
        return;
    m_file.close();
    platform::markAsFromInternet(m_path);
}
