// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <chrono>

/// Keeps other running programs from changing the files of a folder at the same time, as long as they ask for the lock
/// too. The system releases the lock when a program ends in any way, so no lock is left behind.
class FolderLock {
public:
    /// Waits at most `patience` for other programs.
    FolderLock(const QString& folder, std::chrono::milliseconds patience);
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

    /// Whether another program still has the lock. Where the folder cannot be locked at all, nobody has.
    [[nodiscard]] bool isBusy() const { return m_isBusy; }

private:
    qintptr m_handle;
    bool m_isBusy = false;
};
