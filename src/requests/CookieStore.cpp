// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieStore.h"

#include "base/allgemein.h"
#include "crawl/url.h"
#include "requests/SetCookieValue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <optional>

namespace {

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

/// Copies every line but the cookies of some names. False when there is a file that cannot be read to its end, or not
/// all of it can be written.
bool copyWithout(const QSet<QByteArray>& names, const QString& from, QIODevice& to)
{
    QFile old(from);
    if (!old.exists())
        return true;
    if (!old.open(QIODevice::ReadOnly))
        return false;
    while (const auto line = allgemein::readLine(old)) {
        const auto cookie = cookieFrom(line->text);
        const bool kept = !cookie || !names.contains(cookie->name);
        if (kept && !allgemein::writeAll(to, line->text + allgemein::lineEnd))
            return false;
    }
    return old.error() == QFile::NoError;
}

/// The lines of cookies, of each name the last; an empty value makes none. `names` gets the name of each.
QByteArray linesOf(const QList<Cookie>& cookies, QSet<QByteArray>& names)
{
    QByteArrayList lines;
    for (auto cookie = cookies.rbegin(); cookie != cookies.rend(); ++cookie) {
        const bool known = names.contains(cookie->name);
        names += cookie->name;
        if (!known && !cookie->value.isEmpty())
            lines += cookie->path + '\t' + cookie->name + '\t' + cookie->value + allgemein::lineEnd;
    }
    std::reverse(lines.begin(), lines.end());
    return lines.join();
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
    const Cookie cookie { path, name, value };
    return isStorable(host, cookie) && saveCookies(host, { cookie });
}

bool CookieStore::isStorable(const QByteArray& host, const Cookie& cookie) const
{
    using allgemein::isOnOneLine;
    return !fileFor(host).isEmpty() && isOnOneLine(cookie.path) && isOnOneLine(cookie.name)
        && isOnOneLine(cookie.value);
}

bool CookieStore::saveCookies(const QByteArray& host, const QList<Cookie>& cookies) const
{
    QSet<QByteArray> names;
    const QByteArray lines = linesOf(cookies, names);
    const QString fileName = fileFor(host);
    QFile next(m_folder + allgemein::fromSystem(host) + QLatin1String(".tmp"));
    if (!next.open(QIODevice::WriteOnly))
        return false;
    bool written = copyWithout(names, fileName, next) && allgemein::writeAll(next, lines) && next.flush();
    next.close();
    written = written && takePlaceOf(next.fileName(), fileName);
    if (!written)
        next.remove();
    return written;
}

QStringList CookieStore::deleteAll() const
{
    if (m_folder.isEmpty())
        return {};
    QStringList kept;
    for (const QFileInfo& file :
        QDir(m_folder).entryInfoList({ QStringLiteral("*.tkc") }, QDir::Files | QDir::Hidden)) {
        if (!QFile::remove(file.filePath()))
            kept += file.filePath();
    }
    return kept;
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
