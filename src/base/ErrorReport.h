// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

class LanguageTable;
class QFileDevice;

/// The box that tells of a failure: first what was being done, by a key of the table, then what it was done to or what
/// the system says.
[[nodiscard]] Messages::Box errorReport(const LanguageTable& language, const char* doing, const QString& detail);

/// A file's name, and below it what the system says of its last failure.
[[nodiscard]] QString fileFailure(const QFileDevice& file);
