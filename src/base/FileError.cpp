// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileError.h"

#include "base/folders.h"
#include "base/lang.h"

#include <QFile>

QString FileError::text(const LanguageTable& language) const
{
    switch (kind) {
    case System:
        return systemText;
    case NotAFile:
        return language.text("more.notAFile");
    case Incomplete:
        return language.text("more.incompleteFile");
    }
    return {};
}

std::optional<FileError> openForReading(QFile& file, QIODevice::OpenMode how)
{
    if (!allgemein::canBeReplaced(file.fileName()))
        return FileError { FileError::NotAFile };
    if (!file.open(QIODevice::ReadOnly | how))
        return FileError { FileError::System, file.errorString() };
    return {};
}
