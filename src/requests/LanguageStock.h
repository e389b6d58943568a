// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The languages that the user can choose for the Accept-Language line.
namespace languageStock {

/// 205 entries in the order of their codes. An entry is a two-letter ISO 639-1 code, a blank, and the English name of
/// the language, cut to eleven characters.
[[nodiscard]] QStringList entries();

/// The first entry with this code; empty for an unknown code.
[[nodiscard]] QString entryFor(QStringView code);

} // namespace languageStock
