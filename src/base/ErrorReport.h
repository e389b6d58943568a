// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

class LanguageTable;
class QFileDevice;

/// The box that reports a failure. Its first line is the text of the key `doing`, such as "Error while opening";
/// `detail` stands below it.
[[nodiscard]] Messages::Box errorReport(const LanguageTable& language, const char* doing, const QString& detail);

/// A file's name, and below it the system's words for its last error.
[[nodiscard]] QString fileFailure(const QFileDevice& file);
