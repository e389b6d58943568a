// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileReplacement.h"

#include "base/Platform.h"
#include "base/allgemein.h"

namespace {

/// What is written starts on its way to the disk after so many bytes: all of it at the end would hold up the window.
constexpr qint64 syncDistance = 4 * 1024 * 1024;

} // namespace

FileReplacement::FileReplacement(const QString& fileName)
    : m_file(fileName)
    , m_hasFailed(!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
{
}

void FileReplacement::write(const QByteArray& bytes)
{
    m_hasFailed = m_hasFailed || !allgemein::writeAll(m_file, bytes);
    m_unsynced += bytes.size();
    if (m_hasFailed || m_unsynced < syncDistance)
        return;
    platform::startSync(m_file);
    m_unsynced = 0;
}

std::optional<QString> FileReplacement::commit()
{
    if (!m_hasFailed)
        return m_file.commit() ? std::nullopt : std::optional(m_file.errorString());
    // A device may take a part of what it is given and report no error.
    const QString text = m_file.error() != QFileDevice::NoError
        ? m_file.errorString()
        : QStringLiteral("not all could be written; the disk may be full");
    m_file.cancelWriting();
    return text;
}
