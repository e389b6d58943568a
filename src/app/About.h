// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

class LanguageTable;

/// What the program tells about itself.
namespace about {

/// Name, version, licence, and the versions of the libraries.
[[nodiscard]] QString text(const LanguageTable& language);

/// The full path of a page of the guide: beside the program, or in the system's folder for shared files. The file may
/// not exist. Empty for a name that leads out of the guide's folder.
[[nodiscard]] QString helpFile(const QString& name);

/// The makers' pages, set by the build; empty when the build sets none.
[[nodiscard]] QUrl website();
[[nodiscard]] QUrl updates();

} // namespace about
