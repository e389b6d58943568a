// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieStore.h"

#include "base/LineReader.h"
#include "base/allgemein.h"
#include "crawl/url.h"
#include "requests/SetCookieValue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <optional>

namespace {

/// In bytes. A line that is longer is not read.
constexpr qsizetype longestLine = LineReader::ordinarily;
/// In bytes. No system takes a longer one.
constexpr qsizetype longestFileName = 255;

/// Behind the name of a file that is still being written.
constexpr QLatin1String unfinished(".tkc.tmp");

/// The fields of a line, which they are parts of.
struct Fields {
    QByteArrayView path;
    QByteArrayView name;
    QByteArrayView value;
};

/// Nothing for a line without its two TABs, or with a byte that would break a request line.
std::optional<Fields> fieldsOf(QByteArrayView line)
{
    const qsizetype first = line.indexOf('\t');
    const qsizetype second = line.indexOf('\t', first + 1);
    if (first < 0 || second < 0)
        return {};
    const Fields fields { line.first(first), line.sliced(first + 1, second - first - 1), line.sliced(second + 1) };
    if (!allgemein::isOnOneLine(fields.name) || !allgemein::isOnOneLine(fields.value))
        return {};
    return fields;
}

/// Whether the cookie's path is a whole-directory prefix of the request's directory.
bool applies(const Fields& cookie, QByteArrayView directory)
{
    const qint32 slashes = url::countOccurrences("/", cookie.path);
    return slashes > 0 && cookie.path == url::leadingDirectories(directory, slashes - 1);
}

/// The lines of a file, but for the cookies of some names. They are parts of it, without their ends.
QList<QByteArrayView> linesWithout(const QSet<QByteArray>& names, QByteArrayView content)
{
    QList<QByteArrayView> lines;
    while (!content.isEmpty()) {
        const qsizetype end = content.indexOf('\n');
        QByteArrayView line = end < 0 ? content : content.first(end);
        content = content.sliced(qMin(line.size() + 1, content.size()));
        if (end >= 0 && line.endsWith('\r'))
            line.chop(1);
        const auto cookie = fieldsOf(line);
        if (!cookie || !names.contains(QByteArray::fromRawData(cookie->name.data(), cookie->name.size())))
            lines += line;
    }
    return lines;
}

/// The lines of cookies, without their ends; of each name the last; an empty value makes none. `names` gets the name of
/// each.
QByteArrayList linesOf(const QList<Cookie>& cookies, QSet<QByteArray>& names)
{
    QByteArrayList lines;
    for (auto cookie = cookies.rbegin(); cookie != cookies.rend(); ++cookie) {
        const bool known = names.contains(cookie->name);
        names += cookie->name;
        if (!known && !cookie->value.isEmpty())
            lines += cookie->path + '\t' + cookie->name + '\t' + cookie->value;
    }
    std::reverse(lines.begin(), lines.end());
    return lines;
}

/// The whole file, nothing when there is one that cannot be read.
std::optional<QByteArray> contentOf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.readAll();
    return file.error() == QFile::NoError ? std::optional(content) : std::nullopt;
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

/// Writes a file anew by way of another one, which its owner alone can read: cookies are as good as passwords.
bool writeFile(const QString& fileName, const QString& by, const QByteArray& content)
{
    QFile next(by);
    if (!next.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
        return false;
    bool written = allgemein::writeAll(next, content) && next.flush();
    next.close();
    written = written && takePlaceOf(by, fileName);
    if (!written)
        next.remove();
    return written;
}

} // namespace

void CookieStore::setCookieFolder(const QString& folder)
{
    m_folder = allgemein::withTrailingSeparator(folder);
    allgemein::createFolder(m_folder);
}

void CookieStore::takeSetCookies(const QByteArrayList& setCookieValues, const QByteArray& host) const
{
    QList<Cookie> cookies;
    for (const QByteArray& setCookieValue : setCookieValues) {
        const auto path = SetCookieValue::cookiePath(setCookieValue);
        const auto name = SetCookieValue::cookieName(setCookieValue);
        const auto value = SetCookieValue::cookieValue(setCookieValue);
        if (!path || !name || !value || path->size() + name->size() + value->size() > longest)
            continue;
        const Cookie cookie { *path, *name, *value };
        if (isStorable(host, cookie))
            cookies += cookie;
    }
    if (!cookies.isEmpty())
        replace(host, cookies, mostOfAHost);
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
    const qsizetype tabs = 2;
    return !fileFor(host).isEmpty() && isOnOneLine(cookie.path) && isOnOneLine(cookie.name) && isOnOneLine(cookie.value)
        && cookie.path.size() + cookie.name.size() + cookie.value.size() + tabs <= longestLine;
}

bool CookieStore::saveCookies(const QByteArray& host, const QList<Cookie>& cookies) const
{
    return replace(host, cookies, std::numeric_limits<qsizetype>::max());
}

bool CookieStore::replace(const QByteArray& host, const QList<Cookie>& cookies, qsizetype most) const
{
    const QString fileName = fileFor(host);
    const auto old = contentOf(fileName);
    if (!old)
        return false;
    QSet<QByteArray> names;
    const QByteArrayList added = linesOf(cookies, names);
    QList<QByteArrayView> lines = linesWithout(names, *old);
    lines.append({ added.begin(), added.end() });
    QByteArray content;
    for (qsizetype line = qMax<qsizetype>(0, lines.size() - most); line < lines.size(); ++line)
        content.append(lines[line]).append(allgemein::lineEnd);
    if (content == *old && QFile::exists(fileName))
        return true;
    // A name that nobody else has: the console program may write cookies at the same time as the window.
    const QString by = m_folder + QString::number(QRandomGenerator::system()->generate64()) + unfinished;
    return writeFile(fileName, by, content);
}

QStringList CookieStore::deleteAll() const
{
    if (m_folder.isEmpty())
        return {};
    QStringList kept;
    // Cookies are also in what a killed program was writing.
    const QStringList names { QStringLiteral("*.tkc"), QString(u'*' + unfinished) };
    for (const QFileInfo& file : QDir(m_folder).entryInfoList(names, QDir::Files | QDir::Hidden)) {
        if (!QFile::remove(file.filePath()))
            kept += file.filePath();
    }
    return kept;
}

QByteArray CookieStore::getCookieHeader(const QByteArray& url) const
{
    const QByteArrayView host = url::hostOf(url);
    const QByteArrayView directory = url::directoryOf(url);
    const qint32 labelCount = url::labelCount(host);
    QByteArray pairs;
    for (qint32 labels = 1; labels <= labelCount; ++labels) {
        const QByteArrayView domain = url::lastLabels(host, labels);
        // A host may be made of dots alone: looking for a file at each would take minutes.
        if (domain.size() > longestFileName)
            break;
        QFile file(fileFor(domain));
        if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
            continue;
        LineReader lines(file, longestLine);
        while (const auto line = lines.next()) {
            const auto cookie = line->isPiece ? std::nullopt : fieldsOf(line->text);
            if (cookie && applies(*cookie, directory))
                pairs.append(' ').append(cookie->name).append('=').append(cookie->value).append(';');
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
