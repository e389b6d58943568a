// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSaveFile>
#include <QString>

#include <optional>

/// Writes a file that takes the place of an old one as a whole at the end; until then, and when anything fails, the old
/// one stays as it is. Made for long files that are written between other events: no step takes long, and neither does
/// the end.
class FileReplacement {
public:
    explicit FileReplacement(const QString& fileName);

    /// Writes `bytes`, unless something has failed before. Best called with 100 KB and more at a time.
    void write(const QByteArray& bytes);
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }
    /// Puts the file in its place. What the system says if that fails, or if writing has failed before.
    [[nodiscard]] std::optional<QString> commit();

private:
    QSaveFile m_file;
    bool m_hasFailed;
    qint64 m_unsynced = 0;
};
