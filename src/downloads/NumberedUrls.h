// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// The notations of an index.
enum class IndexType {
    Decimal = 2,
    Hexadecimal = 3, ///< in capital letters
    CapitalLetters = 4,
    SmallLetters = 5,
};

/// A run of URLs that differ only in an index.
struct NumberedUrls {
    QByteArray startUrl;
    qsizetype pos = 0; ///< the number of characters of the URL before the index
    qint32 min = 0;
    qint32 max = 0; ///< both bounds belong to the run, which is empty when `max` is below `min`
    qint32 minStellen = 1; ///< the least number of digits of a decimal index
    IndexType type = IndexType::Decimal;

    /// Puts "http://" in front of a URL without a protocol, and writes that of an http URL in small letters. Returns
    /// whether the URL is valid then; if not, it stays unchanged.
    [[nodiscard]] bool confirm();
    /// Whether the URL, once confirmed, has the protocol that downloads support.
    [[nodiscard]] bool isHttp() const { return startUrl.startsWith("http://"); }
    /// The URL for an index.
    [[nodiscard]] QByteArray urlFor(qint32 index) const;
};

/// The text of an index. `minStellen` counts for decimal ones only; 0 in letters is empty.
[[nodiscard]] QByteArray indexText(qint32 index, IndexType type, qint32 minStellen);
