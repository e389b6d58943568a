// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// The two ends of a socket pair. They are global because a signal handler gets no argument but the signal.
int handlerEnd = -1;
int watchEnd = -1;

constexpr int watchedSignals[] = { SIGHUP, SIGINT, SIGTERM };

void onSignal(int);

/// Restores the default effect of a signal that `onSignal` handles.
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
    // A signal handler cannot report a failure.
    [[maybe_unused]] const auto written = write(handlerEnd, &byte, sizeof byte);
    errno = interruptedError;
}

/// Handles a signal by `onSignal`, unless the program was started with the signal ignored (as by nohup).
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
