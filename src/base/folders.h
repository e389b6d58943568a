// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

/// General helpers for folders and file names.
namespace allgemein {

/// The folder with a separator at its end.
[[nodiscard]] QString withTrailingSeparator(const QString& folder);
/// Creates a folder and the folders above it. Ignored: that it exists already, and that it cannot be made.
void createFolder(const QString& folder);
/// Whether `name` names a file of the folder in which it is used: not empty, no separator, no NUL, neither "." nor
/// "..", no name that the system reserves for a device.
[[nodiscard]] bool isPlainFileName(QByteArrayView name);
/// Whether an ordinary file, or a link to one, stands at `path`. Only such a file may be opened for reading: a pipe
/// would wait for a writer, and a device may never end.
[[nodiscard]] bool isOrdinaryFile(const QString& path);
/// Whether a file may be saved at `path`: an ordinary file stands there, or nothing. A save replaces the whole entry,
/// so a device or a pipe would be gone.
[[nodiscard]] bool canBeReplaced(const QString& path);
/// The folder for settings and cookies, with a separator at its end. The environment variable TARNWICK_DATA can name
/// it. Otherwise it is "Tarnwick", beside the program if there is a file "portable.txt", else in the user's application
/// data.
[[nodiscard]] QString dataFolder();

} // namespace allgemein
