// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// Splits an answer, as it arrives in pieces, into header and body. How it was cut into pieces makes no difference.
class AnswerSplitter {
public:
    /// A header that grows beyond this many bytes is too long.
    static constexpr qsizetype headerLimit = 256 * 1024;

    /// What one more piece brings. Mostly one of the fields is set.
    struct Parts {
        QByteArray header; ///< whole, up to and including the line end before the blank line
        QByteArray body; ///< the next piece of the body
        bool headerIsTooLong = false; ///< nothing more may be taken
    };

    [[nodiscard]] Parts take(const QByteArray& piece);

private:
    QByteArray m_header; ///< the part that has arrived
    bool m_isHeaderComplete = false;
};
