// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListReader.h"

#include <utility>

namespace {

/// In bytes. Other programs write longer URLs than are taken; a line with one is reported as unusable.
constexpr qsizetype longestLine = 256 * 1024;

} // namespace

ListReader::ListReader(const QString& fileName, listFormat::Format format)
    : m_file(fileName)
    , m_lines(m_file, longestLine)
    , m_format(format)
    , m_error(openForReading(m_file))
{
    if (m_file.isOpen())
        skipUtf8Mark(m_file);
}

bool ListReader::readLine(const std::function<void(FundStück item)>& take)
{
    const auto line = m_file.isOpen() ? m_lines.next() : std::nullopt;
    if (!line)
        return end();
    if (!line->isRest) {
        ++m_number;
        takeLine(line->isPiece ? QByteArray("too long") : line->text.toByteArray(), take);
    }
    return true;
}

void ListReader::takeLine(const QByteArray& text, const std::function<void(FundStück item)>& take)
{
    const bool isNothing = text.trimmed().isEmpty() || (m_number == 1 && listFormat::isHeaderLine(m_format, text));
    if (isNothing)
        return;
    if (auto item = listFormat::itemFrom(m_format, text))
        take(std::move(*item));
    else
        m_unusable.add(m_number);
}

bool ListReader::end()
{
    if (m_file.isOpen() && m_file.error() != QFile::NoError)
        m_error = FileError { FileError::System, m_file.errorString() };
    m_file.close();
    return false;
}
