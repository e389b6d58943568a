// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QByteArray>
#include <QString>

#include <optional>

class LanguageTable;
class Session;

/// Loads and saves what the program keeps between runs: `tarnwick.ini` in the user's data folder, with a key=value line
/// for each setting or list entry, and beside it `views.ini` for what `tarnwick.ini` has no keys for.
namespace settings {

struct LoadResult {
    QByteArray firstUnknown; ///< the key of the first unknown line
    qint64 firstUnknownLine = 0; ///< the number of that line, from 1
    qint64 unknownCount = 0; ///< how many lines are unknown
    bool isTooLarge = false; ///< the file has more than 16 MiB; the rest was not read
    QString failure; ///< the file's name and the system's error text, if the file exists but cannot be read to its end
};

/// The first step of every start. Makes the folders for settings and cookies, and applies the stored settings to the
/// new session, in the order of the file. List entries are added to the lists. The first language is the built-in one
/// whose number stands in the first line of `default_lang.ini` in the program's folder, or the system's language
/// without that file. A missing file is no failure.
[[nodiscard]] LoadResult loadSettings(Session& session, const QString& programFolder);
/// The message about a loading; nothing if every line was understood.
[[nodiscard]] std::optional<Messages::Box> report(const LoadResult& result, const LanguageTable& language);

/// Replaces both files, each in one step. Returns the file's name and the system's error text if `tarnwick.ini` cannot
/// be written. A settings file that could not be read to its end at the start is left as it is; that counts as a
/// failure.
[[nodiscard]] std::optional<QString> saveSettings(const Session& session);

} // namespace settings
