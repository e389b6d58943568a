// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// Splits an answer, as it arrives in pieces, into header and body. How it was cut into pieces makes no difference.
class AnswerSplitter {
public:
    /// A header that grows beyond this many bytes is too long.
    static constexpr qsizetype headerLimit = 256 * 1024;

    /// What has become clear with a piece; mostly one of these.
    struct Parts {
        QByteArray header; ///< whole, up to and including the line end before the blank line
        QByteArray body; ///< the next piece of it
        bool headerIsTooLong = false; ///< nothing more may be taken
    };

    [[nodiscard]] Parts take(const QByteArray& piece);

private:
    QByteArray m_header; ///< as far as it has come
    bool m_isHeaderComplete = false;
};
