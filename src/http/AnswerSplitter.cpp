// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/AnswerSplitter.h"

#include <QByteArrayView>

#include <utility>

AnswerSplitter::Parts AnswerSplitter::take(const QByteArray& piece)
{
    if (m_isHeaderComplete)
        return { {}, piece };
    constexpr QByteArrayView blankLine = "\r\n\r\n";
    // The blank line may be cut between two pieces: all but its last byte may have come before.
    constexpr qsizetype cut = blankLine.size() - 1;
    const qsizetype searched = qMax<qsizetype>(0, m_header.size() - cut);
    m_header += piece;
    const qsizetype end = m_header.indexOf(blankLine, searched);
    const qsizetype earliestEnd = end < 0 ? m_header.size() - cut : end;
    if (earliestEnd > headerLimit)
        return { {}, {}, true };
    if (end < 0)
        return {};
    m_isHeaderComplete = true;
    const QByteArray received = std::exchange(m_header, {});
    return { received.first(end + 2), received.sliced(end + blankLine.size()) };
}
