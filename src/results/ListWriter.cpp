// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListWriter.h"

#include "base/allgemein.h"

#include <utility>

namespace {

/// In bytes. Lines are written to the file in pieces of about this size.
constexpr qsizetype pieceSize = 128 * 1024;

} // namespace

ListWriter::ListWriter(const QString& fileName, listFormat::Format format, const LanguageTable& language)
    : m_file(fileName)
    , m_format(format)
{
    if (const QByteArray header = listFormat::headerLine(format, language); !header.isEmpty())
        m_lines = header + allgemein::lineEnd;
}

void ListWriter::write(const FundStück& item)
{
    m_lines += listFormat::itemLine(m_format, item);
    m_lines += allgemein::lineEnd;
    if (m_lines.size() >= pieceSize)
        m_file.write(std::exchange(m_lines, {}));
}

std::optional<FileError> ListWriter::commit()
{
    m_file.write(std::exchange(m_lines, {}));
    return m_file.commit();
}
