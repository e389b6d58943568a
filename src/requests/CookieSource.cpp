// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieSource.h"

#include "base/ErrorReport.h"
#include "base/FileError.h"

#include <QDir>
#include <QFile>

bool CookieSource::open(QFile& file)
{
    const QString shownName = QDir::toNativeSeparators(file.fileName());
    if (file.size() > largestFile)
        fail(ImportError::TooLarge, shownName);
    else if (const auto error = openForReading(file); error && error->kind == FileError::NotAFile)
        fail(ImportError::NotAFile, shownName);
    else if (error)
        fail(ImportError::File, fileFailure(file));
    return file.isOpen();
}

bool CookieSource::isJson(QFile& file)
{
    constexpr qint64 ahead = 1024;
    const QByteArray beginning = file.peek(ahead).trimmed();
    return beginning.startsWith('[') || beginning.startsWith('{');
}

void CookieSource::fail(ImportError::Where where, const QString& text)
{
    if (!m_error)
        m_error = { where, text };
}

void CookieSource::passOver(const QString& fileName, qint64 line)
{
    if (m_passedOver.lines.isEmpty())
        m_passedOver.fileName = fileName;
    if (m_passedOver.fileName == fileName)
        m_passedOver.lines.add(line);
}
