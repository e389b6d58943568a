// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/SearchFileWriter.h"

#include "base/allgemein.h"
#include "results/SearchFile.h"

#include <QBuffer>

namespace {

/// In bytes. Lines are written to the file in pieces of about this size.
constexpr qsizetype pieceSize = 128 * 1024;

/// All lines before the item lines.
QByteArray headerLines(const SearchOptions& options, const RequestPrefs& prefs)
{
    QBuffer lines;
    lines.open(QIODevice::WriteOnly);
    options.speicherOpts(lines);
    twkEinstellungen::writeRequestPrefs(lines, prefs);
    return lines.data() + searchFile::resultsMark + allgemein::lineEnd;
}

} // namespace

SearchFileWriter::SearchFileWriter(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list)
    : m_file(fileName)
    , m_walk(list)
{
    m_file.write(headerLines(options, prefs));
}

bool SearchFileWriter::writeSome()
{
    QByteArray lines;
    lines.reserve(pieceSize + pieceSize / 4);
    while (lines.size() < pieceSize) {
        const FundKnoten* const node = m_walk.next();
        if (!node)
            break;
        searchFile::appendItemLine(lines, node->inhalt);
        lines += allgemein::lineEnd;
    }
    m_file.write(lines);
    // Only the last piece is short.
    return lines.size() < pieceSize || m_file.hasFailed();
}

std::optional<FileError> searchFile::save(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, const FundListe& list)
{
    SearchFileWriter writer(fileName, options, prefs, list);
    while (!writer.writeSome()) { }
    return writer.commit();
}
