// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ProgressLine.h"

#include "base/allgemein.h"
#include "console/Terminal.h"

#include <cstdio>

namespace {

constexpr qint64 interval = 100; ///< between two updates, in milliseconds

/// Replaces the last `before` lines on the terminal.
void writeOver(qsizetype before, const QStringList& lines)
{
    QByteArray text = "\r";
    text += QByteArray("\033[A").repeated(before - 1); // move up to the first of these lines
    text += "\033[J"; // erase everything below the cursor
    text += allgemein::toSystem(lines.join(u'\n'));
    std::fputs(text.constData(), stderr);
    std::fflush(stderr);
}

} // namespace

ProgressLine::ProgressLine(bool active)
    : m_active(active)
{
}

bool ProgressLine::isDue() const
{
    return m_active && (m_shown == 0 || m_sinceShown.elapsed() >= interval);
}

void ProgressLine::show(const QStringList& texts)
{
    if (!m_active)
        return;
    QStringList lines;
    for (const QString& text : texts)
        lines += terminal::printable(text).left(terminal::columns() - 1);
    writeOver(qMax(m_shown, qsizetype { 1 }), lines);
    m_shown = texts.size();
    m_sinceShown.start();
}

void ProgressLine::clear()
{
    if (m_shown > 0)
        writeOver(m_shown, {});
    m_shown = 0;
}
