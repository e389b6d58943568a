// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

/// The file that an entry of the download list has written, as it was when the transfer ended. The entry may replace it
/// later although existing files are not overwritten.
struct WrittenFile {
    enum Extent {
        Part, ///< the transfer was cut off
        Unconfirmed, ///< the server closed the connection, but had announced no size or another one
        Whole,
    };

    QString path;
    Extent extent = Part;
    qint64 size = 0; ///< in bytes
    QDateTime modified = {};

    /// Reads size and time of a file that was just closed.
    [[nodiscard]] static WrittenFile at(const QString& path, Extent extent);
    /// Whether the file is still there as it was written. If not, it may be somebody else's file by now.
    [[nodiscard]] bool isUnchanged() const;
    /// Whether the whole file was written and a file still stands there.
    [[nodiscard]] bool standsWhole() const;
    /// Removes the file if it is an unchanged part.
    void removePart() const;
};
