// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"

#include <QStringList>

class CookieImport;
class LanguageTable;
struct ImportCount;

/// The texts that tell the user how an import of cookies ended.
namespace importReport {

/// How many cookies were stored, in words.
[[nodiscard]] QString countText(qint64 count, const LanguageTable& language);
/// One text for each number in `count` that needs a word beside the number of cookies that were stored: those that are
/// never sent, and those that were left out. Often empty.
[[nodiscard]] QStringList notes(const ImportCount& count, const LanguageTable& language);
/// One text for each thing that went wrong: the failure, and the lines without a usable cookie. Mostly empty.
[[nodiscard]] QStringList complaints(const CookieImport& cookies, const LanguageTable& language);
/// The box that is shown at the end of an import: the complaints, the count and the notes.
[[nodiscard]] Messages::Box box(const CookieImport& cookies, const LanguageTable& language);

} // namespace importReport
