// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

class QIODevice;

/// Passes over the mark of UTF-8 in the beginning of a file; false if there is none.
bool skipUtf8Mark(QIODevice& file);

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

    /// In bytes. What people and browsers write stays far below it.
    static constexpr qsizetype ordinarily = 64 * 1024;

    /// Reads `file` on from where it stands; it must outlive the reader. A line of more than `longest` bytes comes in
    /// pieces of that length, so that no file can make one that fills the memory.
    explicit LineReader(QIODevice& file, qsizetype longest = ordinarily);

    /// The next line; nothing at the end of the file or on a read error.
    [[nodiscard]] std::optional<Line> next();
    /// Where the next line begins, in bytes from the beginning of the file.
    [[nodiscard]] qint64 position() const;

private:
    /// Reads on behind what is left; false when there is nothing more.
    [[nodiscard]] bool refill();

    QIODevice& m_file;
    qsizetype m_longest;
    QByteArray m_buffer;
    QByteArrayView m_left; ///< what of the buffer is still to be given
    bool m_isInLongLine = false;
};
