// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

class QIODevice;

/// Skips the mark of UTF-8 at the beginning of a file; false if there is none.
bool skipUtf8Mark(QIODevice& file);

/// Reads a file line by line through a buffer of its own, without a copy of each line.
class LineReader {
public:
    /// A line without its end (CR LF or LF), or a piece of a line that is too long.
    struct Line {
        QByteArrayView text; ///< valid until the next line is read
        /// False for a last line without a line end, and for every piece but the last one of a line.
        bool ended = true;
        bool isPiece = false;
        bool isRest = false; ///< a piece that is not the first
    };

    /// The usual limit, in bytes. Lines that people and browsers write are far shorter.
    static constexpr qsizetype ordinarily = 64 * 1024;

    /// Reads `file` from its present position; `file` must outlive the reader. A line of more than `longest` bytes
    /// comes in pieces of that length, so that no file can fill the memory with one line.
    explicit LineReader(QIODevice& file, qsizetype longest = ordinarily);

    /// The next line; nothing at the end of the file or on a read error.
    [[nodiscard]] std::optional<Line> next();
    /// Where the next line begins, in bytes from the beginning of the file.
    [[nodiscard]] qint64 position() const;

private:
    /// Appends the next bytes of the file to the buffer; false at its end.
    [[nodiscard]] bool refill();

    QIODevice& m_file;
    qsizetype m_longest;
    QByteArray m_buffer;
    QByteArrayView m_left; ///< the part of the buffer that was not returned yet
    bool m_isInLongLine = false;
};
