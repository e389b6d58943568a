// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QByteArray>
#include <QString>

#include <optional>

class LanguageTable;
class Session;

/// What the program keeps from one run to the next: `tarnwick.ini` in the user's data folder, a key=value line for each
/// setting or entry of a list, and beside it what `ViewState` holds.
namespace Settings {

struct LoadResult {
    QByteArray firstUnknown; ///< the key of the first line that nobody knows
    qint64 firstUnknownLine = 0; ///< its number, from 1
    qint64 unknownCount = 0; ///< how many such lines there are
    bool isTooLarge = false; ///< what is beyond 16 MiB was not read
    QString failure; ///< the file and what the system says, if it is there and cannot be read (to its end)
};

/// Applies the stored settings to a new session, in the order of the file. Lists grow by what the file holds. Before
/// it, the language is chosen: by the number of a built-in one in the first line of `default_lang.ini` in the program's
/// folder, or else by the system's. A file that is not there is no failure.
[[nodiscard]] LoadResult loadSettings(Session& session, const QString& programFolder);
/// What is to be said of it; nothing when all was understood.
[[nodiscard]] std::optional<Messages::Box> report(const LoadResult& result, const LanguageTable& language);

/// Replaces the file, in one step. On failure, the file and what the system says. A file that could not be read (to its
/// end) when the session began is left as it is, which counts as a failure.
[[nodiscard]] std::optional<QString> saveSettings(Session& session);

} // namespace Settings
