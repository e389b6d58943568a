// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIODevice>
#include <QString>

#include <optional>

class LanguageTable;
class QFile;

/// Why a file could not be read or written.
struct FileError {
    enum Kind {
        System, ///< `systemText` has the system's words
        NotAFile, ///< the path leads to a folder, a pipe or a device
        Incomplete, ///< the disk took only a part of the text and reported no error
    };
    Kind kind = System;
    QString systemText = {};

    [[nodiscard]] QString text(const LanguageTable& language) const;
};

/// Opens a file for reading, with `how` beside QIODevice::ReadOnly; nothing when that succeeds. A pipe, a device or a
/// folder is refused without touching it.
[[nodiscard]] std::optional<FileError> openForReading(QFile& file, QIODevice::OpenMode how = {});
