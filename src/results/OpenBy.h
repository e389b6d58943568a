// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Shell.h"

#include <QByteArray>
#include <QList>

/// Programs that are started on URLs.
namespace openBy {

/// Whether a program can be started on a URL: it begins with a protocol, so no program takes it for an option.
[[nodiscard]] bool isArgument(const QByteArray& url);

/// A command for each URL, which follows the parameter at once; or one for all of them, each after a blank. Nothing
/// that stands in a URL parts it in two: blanks, double quotes, and whatever is not ASCII are percent-encoded in it.
/// URLs that are no arguments are left out; no URL makes no command.
[[nodiscard]] QList<ProgramCommand> commands(
    const QString& program, const QString& parameter, const QList<QByteArray>& urls, bool oneInstance);

/// Whether a URL may be handed to the system, to be opened with whatever it has for it: http, https and ftp only.
[[nodiscard]] bool isForTheSystem(const QByteArray& url);

} // namespace openBy
