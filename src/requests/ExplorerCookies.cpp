// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/ExplorerCookies.h"

#include "base/ErrorReport.h"
#include "base/Registry.h"
#include "crawl/url.h"

#include <QDir>

namespace {

/// Name, value, host and path run together, then flags, times and a mark.
constexpr qsizetype linesOfCookie = 9;

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
    if (m_line + linesOfCookie > m_lines.size()) {
        if (m_files.isEmpty())
            return false;
        readFile(m_files.takeFirst());
        return true;
    }
    const QByteArray& name = m_lines[m_line];
    const QByteArray& value = m_lines[m_line + 1];
    const QByteArray& place = m_lines[m_line + 2];
    m_line += linesOfCookie;
    take({ url::hostOf(place).toByteArray(), { url::directoryOf(place).toByteArray(), name, value } });
    return true;
}

void ExplorerCookies::readFile(const QString& fileName)
{
    m_lines.clear();
    m_line = 0;
    QFile file(fileName);
    if (file.size() > largestFile)
        fail(ImportError::TooLarge, QDir::toNativeSeparators(fileName));
    else if (!file.open(QIODevice::ReadOnly))
        fail(ImportError::File, fileFailure(file));
    else
        m_lines = file.readAll().split('\n');
    for (QByteArray& line : m_lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
}
