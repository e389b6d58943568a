// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include "base/EndSignals.h"

#include <sys/ioctl.h>
#include <unistd.h>

void terminal::prepare() { }

bool terminal::isTerminal(std::FILE* stream)
{
    return isatty(fileno(stream)) == 1;
}

int terminal::columns()
{
    winsize size {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

terminal::InterruptWatch::InterruptWatch(QObject* parent)
    : QObject(parent)
{
    const auto* const endSignals = new EndSignals(this);
    connect(endSignals, &EndSignals::received, this, &InterruptWatch::interrupted);
}

terminal::InterruptWatch::~InterruptWatch() = default;
