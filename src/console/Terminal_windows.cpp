// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include <QMetaObject>
#include <QMutex>
#include <QMutexLocker>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

/// The handler runs on a thread of its own and gets no argument but the event, so it needs these globals.
QMutex watchMutex;
terminal::InterruptWatch* currentWatch = nullptr;

/// Emits the signal of the watch. Returns false when there is none, or when it has emitted before.
bool notifyWatch()
{
    const QMutexLocker lock(&watchMutex);
    if (!currentWatch)
        return false;
    QMetaObject::invokeMethod(currentWatch, &terminal::InterruptWatch::interrupted, Qt::QueuedConnection);
    currentWatch = nullptr;
    return true;
}

void setWatch(terminal::InterruptWatch* watch)
{
    const QMutexLocker lock(&watchMutex);
    currentWatch = watch;
}

BOOL WINAPI onEvent(DWORD event)
{
    constexpr DWORD longestSave = 10'000; // milliseconds; the system itself waits for less
    if (!notifyWatch())
        return FALSE;
    // When the console closes or the user logs off, the system ends the program as soon as this handler returns. So
    // wait here while the main thread saves and ends the program.
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        Sleep(longestSave);
    return TRUE;
}

} // namespace

void terminal::prepare()
{
    _setmode(_fileno(stdout), _O_BINARY);
    DWORD mode = 0;
    const HANDLE console = GetStdHandle(STD_ERROR_HANDLE);
    if (GetConsoleMode(console, &mode))
        SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool terminal::isTerminal(std::FILE* stream)
{
    return _isatty(_fileno(stream)) != 0;
}

int terminal::columns()
{
    CONSOLE_SCREEN_BUFFER_INFO info {};
    const bool known = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) != 0;
    return known ? info.srWindow.Right - info.srWindow.Left + 1 : 80;
}

terminal::InterruptWatch::InterruptWatch(QObject* parent)
    : QObject(parent)
{
    setWatch(this);
    SetConsoleCtrlHandler(onEvent, TRUE);
}

terminal::InterruptWatch::~InterruptWatch()
{
    setWatch(nullptr);
    SetConsoleCtrlHandler(onEvent, FALSE);
}
