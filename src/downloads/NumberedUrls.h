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

/// How an index reads. Only decimal ones have a least number of digits; 0 in letters is empty.
[[nodiscard]] QByteArray indexText(qint32 index, IndexType type, qint32 minStellen);
