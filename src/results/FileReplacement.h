// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileError.h"

#include <QSaveFile>
#include <QString>

#include <optional>

/// Writes a file that replaces an old one in one step at the end. Until then, and if anything fails, the old file stays
/// as it is. Made for long files that are written between other events: neither `write` nor `commit` takes long.
class FileReplacement {
public:
    /// Fails if a folder, a pipe or a device has that name: committing would put a file in its place.
    explicit FileReplacement(const QString& fileName);

    /// Writes `bytes` unless something has failed before. Call it with 100 KB or more at a time.
    void write(const QByteArray& bytes);
    [[nodiscard]] bool hasFailed() const { return m_error.has_value(); }
    /// Replaces the old file. Returns why that or an earlier `write` failed; nullopt if all went well.
    [[nodiscard]] std::optional<FileError> commit();

private:
    [[nodiscard]] std::optional<FileError> open();

    QSaveFile m_file;
    std::optional<FileError> m_error;
    qint64 m_unsynced = 0;
};
