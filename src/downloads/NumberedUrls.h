// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// How an index is written.
enum class IndexType {
    Decimal = 2,
    Hexadecimal = 3, ///< in capital letters
    CapitalLetters = 4,
    SmallLetters = 5,
};

/// A run of URLs that differ in an index.
struct NumberedUrls {
    QByteArray startUrl;
    qsizetype pos = 0; ///< how many characters of the URL stand before the index
    qint32 min = 0;
    qint32 max = 0; ///< both bounds belong to the run; it is empty when `max` is below `min`
    qint32 minStellen = 1; ///< how many digits a decimal index has at least
    IndexType type = IndexType::Decimal;

    /// Puts "http://" in front of the URL unless it begins with exactly that; whether it is valid then.
    [[nodiscard]] bool confirm();
    /// The URL for an index.
    [[nodiscard]] QByteArray urlFor(qint32 index) const;
};

/// How an index reads. In letters, a number is written in base 27 with "A" (or "a") for 1; the digit 0 is the character
/// before, so 27 is "A@", and 0 is empty.
[[nodiscard]] QByteArray indexText(qint32 index, IndexType type, qint32 minStellen);
/// The index that reads so in letters; 0 for other texts and for numbers beyond 32 bits.
[[nodiscard]] qint32 indexFromLetters(QByteArrayView text, IndexType type);
