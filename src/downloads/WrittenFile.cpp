// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/WrittenFile.h"

#include <QFile>
#include <QFileInfo>

WrittenFile WrittenFile::at(const QString& path, Extent extent)
{
    const QFileInfo info(path);
    return { path, extent, info.size(), info.lastModified() };
}

bool WrittenFile::isUnchanged() const
{
    const QFileInfo info(path);
    return info.isFile() && info.size() == size && info.lastModified() == modified;
}

bool WrittenFile::standsWhole() const
{
    return extent == Whole && QFileInfo(path).isFile();
}

void WrittenFile::removePart() const
{
    if (extent == Part && isUnchanged())
        QFile::remove(path);
}
