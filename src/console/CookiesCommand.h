// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// `tarnwick-cli cookies`: what the cookie store holds. Throws UsageError; returns the exit status.
[[nodiscard]] int runCookiesCommand(const QStringList& arguments);
