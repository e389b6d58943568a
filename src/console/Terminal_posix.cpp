// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include <QSocketNotifier>

#include <csignal>

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// A signal handler is given nothing but the signal, so the way out of it has to be found without an object.
int handlerEnd = -1;
int watchEnd = -1;

void onSignal(int)
{
    constexpr char byte = 1;
    // Nothing can be done about a failure here, and a full buffer holds an interruption already.
    [[maybe_unused]] const auto written = write(handlerEnd, &byte, sizeof byte);
}

} // namespace

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
    int ends[2] = { -1, -1 };
    if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0)
        return;
    handlerEnd = ends[0];
    watchEnd = ends[1];
    auto* const notifier = new QSocketNotifier(watchEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit interrupted();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

terminal::InterruptWatch::~InterruptWatch()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    close(handlerEnd);
    close(watchEnd);
}
