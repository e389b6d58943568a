// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>

#include <sys/resource.h>

/// While it lives, no file of this program grows beyond a size, as on a disk that is full.
class FileSizeLimit {
public:
    explicit FileSizeLimit(quint64 bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limited { bytes, m_before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit m_before {};
    void (*m_handler)(int);
};
#endif
