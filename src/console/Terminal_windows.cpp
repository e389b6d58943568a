// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/Terminal.h"

#include <QMetaObject>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace {

/// The system calls the handler on a thread of its own with nothing but the event.
terminal::InterruptWatch* currentWatch = nullptr;

BOOL WINAPI onEvent(DWORD)
{
    if (!currentWatch)
        return FALSE;
    QMetaObject::invokeMethod(currentWatch, &terminal::InterruptWatch::interrupted, Qt::QueuedConnection);
    currentWatch = nullptr;
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
    currentWatch = this;
    SetConsoleCtrlHandler(onEvent, TRUE);
}

terminal::InterruptWatch::~InterruptWatch()
{
    currentWatch = nullptr;
    SetConsoleCtrlHandler(onEvent, FALSE);
}
