// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

class QIODevice;

/// Reads a file line by line through a buffer of its own, without a copy of each line.
class LineReader {
public:
    /// A line without its end (CR LF or LF), or a piece of a line that is too long.
    struct Line {
        QByteArrayView text; ///< until the next line is read
        /// False for a last line that breaks off without a line end, and for what is not the last piece.
        bool ended = true;
        bool isPiece = false;
        bool isRest = false; ///< a piece that is not the first
    };

    /// Reads `file` on from where it stands; it must outlive the reader. A line of more than `longest` bytes comes in
    /// pieces of that length, so that no file can make one that fills the memory.
    LineReader(QIODevice& file, qsizetype longest);

    /// The next line; nothing at the end of the file or on a read error.
    [[nodiscard]] std::optional<Line> next();

private:
    /// Reads on behind what is left; false when there is nothing more.
    [[nodiscard]] bool refill();

    QIODevice& m_file;
    qsizetype m_longest;
    QByteArray m_buffer;
    QByteArrayView m_left; ///< what of the buffer is still to be given
    bool m_isInLongLine = false;
};
