// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListWriter.h"

#include "base/allgemein.h"

ListWriter::ListWriter(const QString& fileName, listFormat::Format format, const LanguageTable& language)
    : m_file(fileName)
    , m_format(format)
    , m_isWhole(m_file.open(QIODevice::WriteOnly))
{
    if (const QByteArray header = listFormat::headerLine(format, language); !header.isEmpty())
        writeLine(header);
}

void ListWriter::write(const FundStück& item)
{
    writeLine(listFormat::itemLine(m_format, item));
}

void ListWriter::writeLine(const QByteArray& line)
{
    m_isWhole = m_isWhole && allgemein::writeAll(m_file, line + allgemein::lineEnd);
}

std::optional<QString> ListWriter::commit()
{
    const QString error = m_file.errorString();
    if (m_isWhole)
        return m_file.commit() ? std::nullopt : std::optional(m_file.errorString());
    m_file.cancelWriting();
    return error;
}
