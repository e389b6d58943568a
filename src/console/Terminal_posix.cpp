// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// A signal handler is given nothing but the signal, so the way out of it has to be found without an object.
int handlerEnd = -1;
int watchEnd = -1;

constexpr int watchedSignals[] = { SIGINT, SIGTERM };

void onSignal(int);

/// Gives a signal back its usual effect, if it was taken over.
void release(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    if (current.sa_handler == onSignal)
        std::signal(signal, SIG_DFL);
}

void onSignal(int)
{
    const int interruptedError = errno;
    for (const int signal : watchedSignals)
        release(signal);
    constexpr char byte = 1;
    // Nothing can be done about a failure here.
    [[maybe_unused]] const auto written = write(handlerEnd, &byte, sizeof byte);
    errno = interruptedError;
}

/// Leaves alone a signal that the program was started to ignore.
void watch(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    if (current.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

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
    for (const int signal : watchedSignals)
        watch(signal);
}

terminal::InterruptWatch::~InterruptWatch()
{
    for (const int signal : watchedSignals)
        release(signal);
    close(handlerEnd);
    close(watchEnd);
}
