// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The languages that a user can choose from for the Accept-Language line.
namespace LanguageStock {

/// 205 entries in the order of their codes: a two-letter ISO 639-1 code, a blank, and the language's English name, cut
/// to eleven characters.
[[nodiscard]] QStringList entries();

/// The first entry with a code; empty for a code that is not in the stock.
[[nodiscard]] QString entryFor(QStringView code);

} // namespace LanguageStock
