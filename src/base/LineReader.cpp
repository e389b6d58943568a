// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include <QIODevice>

namespace {

constexpr qsizetype pieceSize = 64 * 1024;

constexpr QByteArrayView utf8Mark = "\xef\xbb\xbf";

} // namespace

bool skipUtf8Mark(QIODevice& file)
{
    const bool isThere = file.peek(utf8Mark.size()) == utf8Mark;
    if (isThere)
        file.skip(utf8Mark.size());
    return isThere;
}

LineReader::LineReader(QIODevice& file, qsizetype longest)
    : m_file(file)
    , m_longest(longest)
{
}

std::optional<LineReader::Line> LineReader::next()
{
    qsizetype end = m_left.indexOf('\n');
    while (end < 0 && m_left.size() <= m_longest + 1) { // One byte more for a CR, which is part of the line end.
        const qsizetype searched = m_left.size();
        if (!refill())
            break;
        end = m_left.indexOf('\n', searched);
    }
    if (m_left.isEmpty())
        return {};
    const bool ended = end >= 0;
    const QByteArrayView line = ended ? m_left.first(end) : m_left;
    const QByteArrayView text = ended && line.endsWith('\r') ? line.chopped(1) : line;
    const bool isRest = m_isInLongLine;
    m_isInLongLine = text.size() > m_longest;
    if (m_isInLongLine) {
        m_left = m_left.sliced(m_longest);
        return Line { text.first(m_longest), false, true, isRest };
    }
    m_left = m_left.sliced(ended ? end + 1 : line.size());
    return Line { text, ended, isRest, isRest };
}

qint64 LineReader::position() const
{
    return m_file.pos() - m_left.size();
}

bool LineReader::refill()
{
    // Double the buffer of a long line, so that its beginning is copied only a few times.
    const qsizetype size = qMax(pieceSize, m_left.size());
    QByteArray buffer;
    buffer.reserve(m_left.size() + size);
    buffer += m_left;
    buffer.resize(m_left.size() + size);
    const qint64 read = m_file.read(buffer.data() + m_left.size(), size);
    buffer.resize(m_left.size() + qMax<qint64>(read, 0));
    m_buffer.swap(buffer);
    m_left = m_buffer;
    return read > 0;
}
