// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieStore.h"

#include "base/allgemein.h"
#include "crawl/url.h"
#include "requests/SetCookieValue.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <optional>

namespace {

struct Cookie {
    QByteArray path;
    QByteArray name;
    QByteArray value;
};

/// Nothing for a line without its two TABs, or with a byte that would break a request line.
std::optional<Cookie> cookieFrom(const QByteArray& line)
{
    const qsizetype first = line.indexOf('\t');
    const qsizetype second = line.indexOf('\t', first + 1);
    if (first < 0 || second < 0)
        return {};
    Cookie cookie { line.first(first), line.sliced(first + 1, second - first - 1), line.sliced(second + 1) };
    if (!allgemein::isOnOneLine(cookie.name) || !allgemein::isOnOneLine(cookie.value))
        return {};
    return cookie;
}

/// Whether the cookie's path is a whole-directory prefix of the request's directory.
bool applies(const Cookie& cookie, QByteArrayView directory)
{
    const qint32 slashes = url::countOccurrences("/", cookie.path);
    return slashes > 0 && cookie.path == url::leadingDirectories(directory, slashes - 1);
}

/// Copies every line but the cookies of a name. False when there is a file that cannot be read to its end, or not all
/// of it can be written.
bool copyWithout(const QByteArray& name, const QString& from, QIODevice& to)
{
    QFile old(from);
    if (!old.exists())
        return true;
    if (!old.open(QIODevice::ReadOnly))
        return false;
    while (const auto line = allgemein::readLine(old)) {
        const auto cookie = cookieFrom(line->text);
        const bool kept = !cookie || cookie->name != name;
        if (kept && !allgemein::writeAll(to, line->text + allgemein::lineEnd))
            return false;
    }
    return old.error() == QFile::NoError;
}

/// Puts a file in the place of another in one step, so that there is always the old or the new one. It does not wait
/// for the disk, as saving a user's document would: this happens for every answer that sets a cookie.
bool takePlaceOf(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(
        QFileInfo(from).filesystemAbsoluteFilePath(), QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return !error;
}

} // namespace

void CookieStore::setCookieFolder(const QString& folder)
{
    m_folder = allgemein::withTrailingSeparator(folder);
    allgemein::createFolder(m_folder);
}

void CookieStore::takeSetCookie(const QByteArray& setCookieValue, const QByteArray& host) const
{
    const auto path = SetCookieValue::cookiePath(setCookieValue);
    const auto name = SetCookieValue::cookieName(setCookieValue);
    const auto value = SetCookieValue::cookieValue(setCookieValue);
    if (path && name && value)
        saveCookie(host, *path, *name, *value);
}

bool CookieStore::saveCookie(
    const QByteArray& host, const QByteArray& path, const QByteArray& name, const QByteArray& value) const
{
    using allgemein::isOnOneLine;
    const QString fileName = fileFor(host);
    if (fileName.isEmpty() || !isOnOneLine(path) || !isOnOneLine(name) || !isOnOneLine(value))
        return false;
    QFile next(m_folder + allgemein::fromSystem(host) + QLatin1String(".tmp"));
    if (!next.open(QIODevice::WriteOnly))
        return false;
    const QByteArray line = value.isEmpty() ? QByteArray() : path + '\t' + name + '\t' + value + allgemein::lineEnd;
    bool written = copyWithout(name, fileName, next) && allgemein::writeAll(next, line) && next.flush();
    next.close();
    written = written && takePlaceOf(next.fileName(), fileName);
    if (!written)
        next.remove();
    return written;
}

QByteArray CookieStore::getCookieHeader(const QByteArray& url) const
{
    const QByteArrayView host = url::hostOf(url);
    const QByteArrayView directory = url::directoryOf(url);
    QByteArray pairs;
    for (qint32 labels = 1; labels <= url::labelCount(host); ++labels) {
        QFile file(fileFor(url::lastLabels(host, labels)));
        if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
            continue;
        while (const auto line = allgemein::readLine(file)) {
            const auto cookie = cookieFrom(line->text);
            if (cookie && applies(*cookie, directory))
                pairs += ' ' + cookie->name + '=' + cookie->value + ';';
        }
    }
    return pairs.isEmpty() ? QByteArray() : "Cookie:" + pairs.chopped(1) + "\r\n";
}

QString CookieStore::fileFor(QByteArrayView host) const
{
    const QByteArray name = host.toByteArray() + ".tkc";
    const bool usable = !m_folder.isEmpty() && !host.isEmpty() && allgemein::isPlainFileName(name);
    return usable ? m_folder + allgemein::fromSystem(name) : QString();
}
