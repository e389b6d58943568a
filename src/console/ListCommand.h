// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// `tarnwick-cli list`: prints the items of a search file. Throws UsageError; returns the exit status.
[[nodiscard]] int runListCommand(const QStringList& arguments);
