// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include "base/allgemein.h"

#include <QIODevice>

#include <utility>

namespace {

constexpr qsizetype pieceSize = 256 * 1024;

} // namespace

LineReader::LineReader(QIODevice& file, qsizetype longest)
    : m_file(file)
    , m_longest(longest)
{
}

std::optional<LineReader::Line> LineReader::next()
{
    qsizetype end = m_left.indexOf('\n');
    while (end < 0 && m_left.size() <= m_longest + 1) { // a CR is part of the line's end
        const qsizetype searched = m_left.size();
        if (!refill())
            break;
        end = m_left.indexOf('\n', searched);
    }
    if (m_left.isEmpty())
        return {};
    const QByteArrayView line = m_left.first(end + 1);
    const QByteArrayView text = line.chopped(line.endsWith(allgemein::lineEnd) ? 2 : qMin<qsizetype>(end + 1, 1));
    if (end < 0 || text.size() > m_longest) {
        const qsizetype size = qMin(m_left.size(), m_longest);
        return Line { std::exchange(m_left, m_left.sliced(size)).first(size), false };
    }
    m_left = m_left.sliced(end + 1);
    return Line { text, true };
}

bool LineReader::refill()
{
    QByteArray buffer;
    buffer.reserve(m_left.size() + pieceSize);
    buffer += m_left;
    buffer.resize(m_left.size() + pieceSize);
    const qint64 read = m_file.read(buffer.data() + m_left.size(), pieceSize);
    buffer.resize(m_left.size() + qMax<qint64>(read, 0));
    m_buffer.swap(buffer);
    m_left = m_buffer;
    return read > 0;
}
