// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/ExplorerCookies.h"

#include "base/ErrorReport.h"
#include "base/Registry.h"
#include "base/allgemein.h"
#include "http/url.h"

#include <QDir>

#include <array>

namespace {

/// Name, value, host with path, flags, the low and the high half of the expiry time, two halves of another time, "*".
constexpr size_t linesOfCookie = 9;
using Lines = std::array<QByteArray, linesOfCookie>;

bool isSecure(const Lines& lines)
{
    constexpr qint64 secureFlag = 1;
    return (allgemein::leadingNumber(lines[3]) & secureFlag) != 0;
}

/// In seconds since 1970; below 0 when there is none. The browser counts tenths of a microsecond since 1601.
qint64 expiryOf(const Lines& lines)
{
    constexpr quint64 ticksOfSecond = 10'000'000;
    constexpr qint64 secondsBefore1970 = 11'644'473'600;
    const auto half = [](const QByteArray& line) -> quint64 {
        return line.toUInt();
    };
    const quint64 ticks = half(lines[5]) << 32 | half(lines[4]);
    return static_cast<qint64>(ticks / ticksOfSecond) - secondsBefore1970;
}

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
    Lines lines;
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
    take({ url::hostOf(place).toByteArray(), { url::directoryOf(place).toByteArray(), lines[0], lines[1] },
        isSecure(lines), expiryOf(lines) });
    return true;
}

bool ExplorerCookies::openNext()
{
    if (m_files.isEmpty())
        return false;
    m_file.setFileName(m_files.takeFirst());
    if (open(m_file))
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
