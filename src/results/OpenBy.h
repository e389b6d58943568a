// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Shell.h"

#include <QByteArray>
#include <QList>

/// Which URLs are handed to other programs, and how.
namespace openBy {

/// Whether a URL can be an argument of a program: it begins with a protocol, so no program takes it for an option.
[[nodiscard]] bool isArgument(const QByteArray& url);

/// The commands that open URLs with a program: one for each URL, which is appended to the parameter, or with
/// `oneInstance` a single one with all URLs, each after a blank. Blanks, double quotes and bytes beyond ASCII are
/// percent-encoded in URLs, so that a URL stays one argument. URLs that cannot be arguments are left out. Empty if no
/// URL is left.
[[nodiscard]] QList<ProgramCommand> commands(
    const QString& program, const QString& parameter, const QList<QByteArray>& urls, bool oneInstance);

/// Whether a URL may be opened with the system's program for it: only http, https and ftp URLs may.
[[nodiscard]] bool isForTheSystem(const QByteArray& url);

} // namespace openBy
