// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// The end of a pipe that the signal handler writes to. It is global because a handler gets no argument but the signal.
int handlerEnd = -1;

constexpr int watchedSignals[] = { SIGHUP, SIGINT, SIGTERM };

void onSignal(int)
{
    const int interruptedError = errno;
    constexpr char byte = 1;
    // A signal handler cannot report a failure.
    [[maybe_unused]] const auto written = write(handlerEnd, &byte, sizeof byte);
    errno = interruptedError;
}

/// Handles the next signal of this kind, unless the program was started with it ignored (as by nohup).
void handle(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    if (current.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
}

/// Restores the default effect of a signal that is still handled here.
void release(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    if (current.sa_handler == onSignal)
        std::signal(signal, SIG_DFL);
}

} // namespace

struct EndRequest::Watch {
    int watchEnd = -1;
    std::unique_ptr<QSocketNotifier> notifier;
};

EndRequest::EndRequest()
    : m_watch(std::make_unique<Watch>())
{
    int ends[2] = { -1, -1 };
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_watch->watchEnd = ends[0];
    handlerEnd = ends[1];
    m_watch->notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    connect(m_watch->notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_watch->notifier->setEnabled(false);
        for (const int signal : watchedSignals)
            release(signal);
        emit received();
    });
    for (const int signal : watchedSignals)
        handle(signal);
}

EndRequest::~EndRequest()
{
    for (const int signal : watchedSignals)
        release(signal);
    m_watch->notifier.reset();
    close(m_watch->watchEnd);
    close(handlerEnd);
}
