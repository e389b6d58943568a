// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/UnusableLines.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QNetworkCookie>

/// The text of a "cookies.txt" in the Netscape format, as other programs read and write it: a line for each cookie with
/// the fields domain, whether hosts below it count, path, whether https is required, seconds of expiry (0: none), name
/// and value between TABs.
struct WebCookieFile {
    /// In seconds since 1970: the end of the year 9999. Later times are written as this one.
    static constexpr qint64 latestExpiry = 253402300799;

    QList<QNetworkCookie> cookies;
    QByteArrayList otherLines; ///< comments and broken lines, which are kept
    UnusableLines broken; ///< the numbers of the lines that hold neither cookie nor comment

    [[nodiscard]] static WebCookieFile parse(QByteArrayView content);
    [[nodiscard]] QByteArray text() const;
};
