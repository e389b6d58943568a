// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "base/lang.h"

#include <QFile>

/// Reads a language file (`*.lng`) into a language table. A line holds a key, "=" and the text. Skipped are comments,
/// whose key begins with "//", lines without "=", and lines of more than `LineReader::ordinarily` bytes.
/// The file is text in the system code page, or in UTF-8 if it begins with its mark or is valid UTF-8. Only
/// an ordinary file of at most 16 MiB can be read.
class LanguageFile {
public:
    enum class Step {
        End,
        UnknownKey, ///< `key` is not in the table; call `read` to go on behind it
        Failed, ///< the file cannot be read (any further)
    };

    /// `table` must outlive the reading.
    LanguageFile(const QString& fileName, LanguageTable& table);

    /// Whether the file could be opened.
    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    /// Reads up to the next step to tell of, and puts the texts read so far into force.
    [[nodiscard]] Step read();
    [[nodiscard]] const QByteArray& key() const { return m_key; }
    /// The file's name, ":" and the number of the line that was read last; the name alone before the first line.
    [[nodiscard]] QString place() const;

private:
    [[nodiscard]] Step readLines();
    [[nodiscard]] bool takeLine(const QByteArray& line);

    QFile m_file;
    LineReader m_lines;
    LanguageTable& m_table;
    QByteArray m_key;
    qint64 m_line = 0;
    bool m_isUtf8 = false;
};
