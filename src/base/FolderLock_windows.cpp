// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FolderLock.h"

#include <QCryptographicHash>
#include <QDir>

#include <windows.h>

namespace {

/// A mutex that all programs of the user's session find by the folder's name.
HANDLE mutexFor(const QString& folder)
{
    const QByteArray path = QDir(folder).absolutePath().toLower().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex();
    const std::wstring name = L"Local\\Tarnwick-" + QString::fromLatin1(hash).toStdWString();
    return CreateMutexW(nullptr, FALSE, name.c_str());
}

} // namespace

FolderLock::FolderLock(const QString& folder, std::chrono::milliseconds patience)
    : m_handle(reinterpret_cast<qintptr>(mutexFor(folder)))
{
    if (!m_handle)
        return;
    const auto milliseconds = static_cast<DWORD>(patience.count());
    m_isBusy = WaitForSingleObject(reinterpret_cast<HANDLE>(m_handle), milliseconds) == WAIT_TIMEOUT;
}

FolderLock::~FolderLock()
{
    if (!m_handle)
        return;
    if (!m_isBusy)
        ReleaseMutex(reinterpret_cast<HANDLE>(m_handle));
    CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}
