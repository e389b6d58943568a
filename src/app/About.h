// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

class LanguageTable;

/// What the program says of itself.
namespace about {

/// Name, version, licence, and the versions of the libraries.
[[nodiscard]] QString text(const LanguageTable& language);

/// The full path of a page of the guide: beside the program, or where a system keeps what is shared. It may not exist;
/// empty for a name that leads elsewhere.
[[nodiscard]] QString helpFile(const QString& name);

/// The makers' pages, which the build names; empty when it names none.
[[nodiscard]] QUrl website();
[[nodiscard]] QUrl updates();

} // namespace about
