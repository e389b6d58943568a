// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

/// What differs between operating systems. Each has a source file of its own, chosen by the build.
namespace platform {

/// The user's application-data folder; empty when the system names none.
[[nodiscard]] QString applicationDataFolder();

/// Where downloads go as long as the user has not chosen.
[[nodiscard]] QString defaultDownloadFolder();

/// Whether the system takes a file of this name for something other than a file of its folder.
[[nodiscard]] bool isReservedFileName(QByteArrayView name);

/// A text value of a key of the current user's registry; nothing when there is none, or the system has no registry.
[[nodiscard]] std::optional<QString> registryText(const QString& key, const QString& name);

/// Where the user's Firefox keeps its profiles; empty when there is no such folder.
[[nodiscard]] QString firefoxProfilesFolder();

/// Puts a file on the system's list of recent documents, where it keeps one.
void addRecentDocument(const QString& path);

} // namespace platform
