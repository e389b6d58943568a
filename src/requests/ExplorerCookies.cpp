// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/ExplorerCookies.h"

#include "base/ErrorReport.h"
#include "base/Registry.h"
#include "http/url.h"

#include <QDir>

#include <array>

namespace {

/// Name, value, host with path, then five lines of flags and times, and "*".
constexpr size_t linesOfCookie = 9;

std::optional<QString> cookieFolder(const Registry& registry)
{
    const auto folder =
        registry.text(QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders\\"),
            QStringLiteral("Cookies"));
    return folder && !folder->isEmpty() ? folder : std::nullopt;
}

} // namespace

ExplorerCookies::ExplorerCookies(const Registry& registry)
{
    const auto folder = cookieFolder(registry);
    if (!folder) {
        fail(ImportError::NoStore, {});
        return;
    }
    const QDir files(*folder);
    if (!files.isReadable())
        fail(ImportError::File, QDir::toNativeSeparators(*folder));
    for (const QString& name : files.entryList({ QStringLiteral("*.txt") }, QDir::Files | QDir::Hidden | QDir::System))
        m_files += files.filePath(name);
}

bool ExplorerCookies::areHere(const Registry& registry)
{
    return cookieFolder(registry).has_value();
}

bool ExplorerCookies::read(const Take& take)
{
    if (!m_file.isOpen())
        return openNext();
    const qint64 first = m_number + 1;
    bool isNothing = true; // so far
    std::array<QByteArray, linesOfCookie> lines;
    for (QByteArray& text : lines) {
        const auto line = m_lines->next();
        if (!line || line->isPiece) {
            if (line || !isNothing)
                passOver(m_file.fileName(), first);
            endFile();
            return true;
        }
        ++m_number;
        text = line->text.toByteArray();
        isNothing = isNothing && text.isEmpty();
    }
    const QByteArray& place = lines[2];
    take({ url::hostOf(place).toByteArray(), { url::directoryOf(place).toByteArray(), lines[0], lines[1] } });
    return true;
}

bool ExplorerCookies::openNext()
{
    if (m_files.isEmpty())
        return false;
    m_file.setFileName(m_files.takeFirst());
    if (m_file.size() > largestFile)
        fail(ImportError::TooLarge, QDir::toNativeSeparators(m_file.fileName()));
    else if (!m_file.open(QIODevice::ReadOnly))
        fail(ImportError::File, fileFailure(m_file));
    else
        m_lines.emplace(m_file);
    m_number = 0;
    return true;
}

void ExplorerCookies::endFile()
{
    if (m_file.error() != QFile::NoError)
        fail(ImportError::File, fileFailure(m_file));
    m_file.close();
}
