// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/ProgressLine.h"

#include "base/allgemein.h"
#include "console/Terminal.h"

#include <cstdio>

namespace {

constexpr qint64 interval = 100; // milliseconds

void writeOver(const QString& text)
{
    constexpr const char* toLineStartAndErase = "\r\033[K";
    std::fputs(toLineStartAndErase, stderr);
    std::fputs(allgemein::toSystem(text).constData(), stderr);
    std::fflush(stderr);
}

} // namespace

ProgressLine::ProgressLine(bool active)
    : m_active(active)
{
}

bool ProgressLine::isDue() const
{
    return m_active && (!m_shown || m_sinceShown.elapsed() >= interval);
}

void ProgressLine::show(const QString& text)
{
    if (!m_active)
        return;
    writeOver(terminal::printable(text).left(terminal::columns() - 1));
    m_shown = true;
    m_sinceShown.start();
}

void ProgressLine::clear()
{
    if (m_shown)
        writeOver({});
    m_shown = false;
}
