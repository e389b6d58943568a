// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/LineReader.h"
#include "base/UnusableLines.h"
#include "results/ListFormat.h"

#include <QFile>

#include <functional>

/// Reads a list of URLs, or of the columns of found items, from a file.
class ListReader {
public:
    ListReader(const QString& fileName, listFormat::Format format);

    /// Hands the item of the next line to `take`, if the line has one. False at the end of the file.
    [[nodiscard]] bool readLine(const std::function<void(FundStück item)>& take);

    /// What the system says if the file cannot be read (to its end); empty otherwise.
    [[nodiscard]] const QString& error() const { return m_error; }
    /// The lines without a usable URL. Empty lines do not count.
    [[nodiscard]] const UnusableLines& unusable() const { return m_unusable; }

private:
    void takeLine(const QByteArray& text, const std::function<void(FundStück item)>& take);
    [[nodiscard]] bool end();

    QFile m_file;
    LineReader m_lines;
    listFormat::Format m_format;
    QString m_error;
    qint64 m_number = 0;
    UnusableLines m_unusable;
};
