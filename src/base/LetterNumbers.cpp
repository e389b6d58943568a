// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LetterNumbers.h"

#include <limits>

namespace {

constexpr qint32 base = 27;

/// The character of the digit 0.
char zeroOf(letterNumbers::Letters letters)
{
    return letters == letterNumbers::Letters::Capital ? 'A' - 1 : 'a' - 1;
}

} // namespace

QByteArray letterNumbers::text(qint32 number, Letters letters)
{
    QByteArray text;
    for (qint32 rest = number; rest > 0; rest /= base)
        text.prepend(static_cast<char>(zeroOf(letters) + rest % base));
    return text;
}

qint32 letterNumbers::number(QByteArrayView text, Letters letters)
{
    qint64 number = 0;
    for (const char letter : text) {
        const int digit = letter - zeroOf(letters);
        if (digit < 0 || digit >= base)
            return 0;
        number = number * base + digit;
        if (number > std::numeric_limits<qint32>::max())
            return 0;
    }
    return static_cast<qint32>(number);
}
