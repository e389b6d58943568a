// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// `tarnwick-cli number`: prints a run of numbered URLs. Returns the exit status; throws UsageError.
[[nodiscard]] int runNumberCommand(const QStringList& arguments);
