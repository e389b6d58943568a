// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FolderLock.h"

#include <QFile>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

FolderLock::FolderLock(const QString& folder, std::chrono::milliseconds patience)
    : m_handle(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_handle < 0)
        return;
    const auto end = std::chrono::steady_clock::now() + patience;
    const auto takeLock = [this] {
        m_isBusy = flock(static_cast<int>(m_handle), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    };
    takeLock();
    while (m_isBusy && std::chrono::steady_clock::now() < end) {
        std::this_thread::yield();
        takeLock();
    }
}

FolderLock::~FolderLock()
{
    if (m_handle >= 0)
        close(static_cast<int>(m_handle));
}
