// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "base/lang.h"

#include <QFile>

/// Lays the texts of a language file (`*.lng`) over those of a table, line by line. A line holds a key, "=" and the
/// text; a key that begins with "//" makes it a comment; lines without "=" and those that are too long are passed over.
/// The file is text in the system code page, or in UTF-8 if it begins with the mark of that encoding. What is no
/// ordinary file, or larger than 16 MiB, cannot be read.
class LanguageFile {
public:
    enum class Step {
        End,
        UnknownKey, ///< `key` is none of the table's; `read` goes on behind it
        Failed, ///< the file cannot be read (any further)
    };

    /// `table` must outlive the reading.
    LanguageFile(const QString& fileName, LanguageTable& table);

    /// Whether the file could be opened.
    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    /// Reads on, to the next step that somebody must know of. The texts read so far are in force then.
    [[nodiscard]] Step read();
    [[nodiscard]] const QByteArray& key() const { return m_key; }
    /// The file's name and, behind a ":", the number of the line that was read last.
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
