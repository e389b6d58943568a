// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/FileReplacement.h"

#include "base/Platform.h"
#include "base/allgemein.h"
#include "base/folders.h"

namespace {

/// In bytes. The system is told to begin writing to the disk after this many: writing all of a long file at the end
/// would hold up the window.
constexpr qint64 syncDistance = 4 * 1024 * 1024;

} // namespace

FileReplacement::FileReplacement(const QString& fileName)
    : m_file(fileName)
    , m_error(open())
{
}

std::optional<FileError> FileReplacement::open()
{
    if (!allgemein::canBeReplaced(m_file.fileName()))
        return FileError { FileError::NotAFile };
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return FileError { FileError::System, m_file.errorString() };
    return {};
}

void FileReplacement::write(const QByteArray& bytes)
{
    if (m_error)
        return;
    if (!allgemein::writeAll(m_file, bytes)) {
        const bool isReported = m_file.error() != QFileDevice::NoError;
        m_error =
            isReported ? FileError { FileError::System, m_file.errorString() } : FileError { FileError::Incomplete };
        return;
    }
    m_unsynced += bytes.size();
    if (m_unsynced < syncDistance)
        return;
    platform::startSync(m_file);
    m_unsynced = 0;
}

std::optional<FileError> FileReplacement::commit()
{
    if (m_error)
        m_file.cancelWriting();
    else if (!m_file.commit())
        m_error = FileError { FileError::System, m_file.errorString() };
    return m_error;
}
