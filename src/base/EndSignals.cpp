// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EndSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The two ends of a pipe. They are global because a signal handler gets no argument but the signal.
int watchEnd = -1;
int handlerEnd = -1;

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

/// Handles a signal by `onSignal`, unless the program was started with the signal ignored.
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

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{
    int ends[2] = { -1, -1 };
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    watchEnd = ends[0];
    handlerEnd = ends[1];
    auto* const notifier = new QSocketNotifier(watchEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit received();
    });
    for (const int signal : watchedSignals)
        watch(signal);
}

EndSignals::~EndSignals()
{
    for (const int signal : watchedSignals)
        release(signal);
    close(handlerEnd);
    close(watchEnd);
}
