// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// Numbers written in letters: base 27, the most significant digit first, with "A" (or "a") for 1. The digit 0 is the
/// character before, so 27 is "A@"; the number 0 is empty.
namespace letterNumbers {

enum class Letters { Capital, Small };

/// Empty for numbers below 1.
[[nodiscard]] QByteArray text(qint32 number, Letters letters);
/// 0 for a text that is not written so, and for a number beyond 32 bits.
[[nodiscard]] qint32 number(QByteArrayView text, Letters letters);

} // namespace letterNumbers
