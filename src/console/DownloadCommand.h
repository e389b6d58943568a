// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// `tarnwick-cli download`: downloads URLs and the items of search files. Returns the exit status; throws UsageError.
[[nodiscard]] int runDownloadCommand(const QStringList& arguments);
