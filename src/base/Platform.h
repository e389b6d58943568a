// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

class QFile;
class QFileDevice;

/// Functions that differ between operating systems. Each system has its own source file, chosen by the build.
namespace platform {

/// The user's application-data folder; empty when the system names none.
[[nodiscard]] QString applicationDataFolder();

/// The folder for downloads until the user chooses one.
[[nodiscard]] QString defaultDownloadFolder();

/// Whether the system would not open a file of its folder by this name, but a device or another folder.
[[nodiscard]] bool isReservedFileName(QByteArrayView name);

/// The name pattern of programs for a file dialog.
[[nodiscard]] QString programPattern();

/// Whether the system would run a program of this name through its command interpreter, which takes parts of the
/// arguments for commands.
[[nodiscard]] bool isRunByShell(const QString& program);

/// Starts a program. Arguments end at blanks outside double quotes. False when the program cannot be started.
[[nodiscard]] bool startProgram(const QString& program, const QString& arguments);

/// A text value of a key of the current user's registry; nothing when there is none, or the system has no registry.
[[nodiscard]] std::optional<QString> registryText(const QString& key, const QString& name);

/// The profiles folder of the user's Firefox; empty when there is none.
[[nodiscard]] QString firefoxProfilesFolder();

/// Keeps other users of the system from looking into a folder, where folders have permissions.
void keepFromOthers(const QString& folder);

/// The memory that the program may use, in bytes: the machine's, or the limit that was set for the program.
[[nodiscard]] qint64 memorySize();

/// Whether the user is the superuser. Always false on systems without one.
[[nodiscard]] bool isSuperuser();

/// Opens a file for writing, without a buffer. A new file is created; one that exists is emptied if `replaces` is set,
/// and is an error otherwise. Until it is closed, it cannot be opened by this function again, in this program or
/// another. A link, a pipe or a device is not opened. Returns false when the file cannot be opened.
[[nodiscard]] bool openToWrite(QFile& file, const QString& path, bool replaces);

/// Marks a file as one that came from the internet, so that the system warns before it starts it as a program. Does
/// nothing where there is no such mark.
void markAsFromInternet(const QString& path);

/// Asks the system to begin writing a file's data to the disk, and returns at once. Does nothing where that is not
/// possible.
void startSync(const QFileDevice& file);

/// Adds a file to the system's list of recent documents. Does nothing where there is no such list.
void addRecentDocument(const QString& path);

} // namespace platform
