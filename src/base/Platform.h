// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

class QFileDevice;

/// What differs between operating systems. Each has a source file of its own, chosen by the build.
namespace platform {

/// The user's application-data folder; empty when the system names none.
[[nodiscard]] QString applicationDataFolder();

/// Where downloads go as long as the user has not chosen.
[[nodiscard]] QString defaultDownloadFolder();

/// Whether the system takes a file of this name for something other than a file of its folder.
[[nodiscard]] bool isReservedFileName(QByteArrayView name);

/// What the names of programs end in, as the pattern of a file dialog.
[[nodiscard]] QString programPattern();

/// Whether the system has a command interpreter run a program of this name, which would read the arguments its own way.
[[nodiscard]] bool isRunByShell(const QString& program);

/// Starts a program with its arguments, which are parted at blanks but for those between double quotes. False when that
/// fails.
[[nodiscard]] bool startProgram(const QString& program, const QString& arguments);

/// A text value of a key of the current user's registry; nothing when there is none, or the system has no registry.
[[nodiscard]] std::optional<QString> registryText(const QString& key, const QString& name);

/// Where the user's Firefox keeps its profiles; empty when there is no such folder.
[[nodiscard]] QString firefoxProfilesFolder();

/// Whether the program runs with the rights of the system's administrator, where that is a user of its own.
[[nodiscard]] bool isSuperuser();

/// Has the system begin to bring what was written to a file to the disk, without waiting for it, where it can do that.
void startSync(const QFileDevice& file);

/// Puts a file on the system's list of recent documents, where it keeps one.
void addRecentDocument(const QString& path);

} // namespace platform
