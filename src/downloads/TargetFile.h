// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>

#include <optional>

enum class DownloadStatus;
struct TargetName;
struct WrittenFile;

/// The file that a transfer writes, below the target folder. Links below that folder are not followed: others may be
/// able to create them there, and they would decide which file is written. While the file is open, it cannot be opened
/// for another transfer.
class TargetFile {
public:
    /// Creates `folder` (with trailing separator) and the directories of `target` in it, and opens the file for
    /// writing. A file that exists is replaced if `overwrite` is set, or if it is `own` and unchanged. Returns the
    /// reason when it fails.
    [[nodiscard]] std::optional<DownloadStatus> open(
        const QString& folder, const TargetName& target, bool overwrite, const std::optional<WrittenFile>& own);
    /// Returns false when not all could be written.
    [[nodiscard]] bool write(const char* bytes, qsizetype size) { return m_file.write(bytes, size) == size; }
    /// Closes the file and marks it as one from the internet.
    void close();

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] const QString& path() const { return m_path; }

private:
    QFile m_file;
    QString m_path;
};
