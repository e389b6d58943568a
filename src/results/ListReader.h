// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileError.h"
#include "base/LineReader.h"
#include "base/UnusableLines.h"
#include "results/ListFormat.h"

#include <QFile>

#include <functional>
#include <optional>

/// Reads the items of a list file, one line at a time.
class ListReader {
public:
    ListReader(const QString& fileName, listFormat::Format format);

    /// Reads the next line and passes its item, if it has one, to `take`. Returns false at the end of the file.
    [[nodiscard]] bool readLine(const std::function<void(FundStück item)>& take);

    /// Why the file could not be read to its end; nullopt if it could.
    [[nodiscard]] const std::optional<FileError>& error() const { return m_error; }
    /// The lines without a usable URL. Empty lines are not counted.
    [[nodiscard]] const UnusableLines& unusable() const { return m_unusable; }

private:
    void takeLine(const QByteArray& text, const std::function<void(FundStück item)>& take);
    [[nodiscard]] bool end();

    QFile m_file;
    LineReader m_lines;
    listFormat::Format m_format;
    std::optional<FileError> m_error;
    qint64 m_number = 0;
    UnusableLines m_unusable;
};
