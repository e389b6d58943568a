// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieFile.h"

#include "base/FileError.h"
#include "base/allgemein.h"
#include "http/url.h"

#include <QByteArrayList>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSet>

#include <algorithm>
#include <filesystem>

namespace {

/// In bytes. Requests would have to wait for a larger file.
constexpr qint64 largestFile = 64 * 1024 * 1024;

/// The fields of a cookie line. They point into the line.
struct Fields {
    QByteArrayView path;
    QByteArrayView name;
    QByteArrayView value;
};

/// Nothing for a line without two TABs, or with a byte that would break a request line.
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

/// Whether the cookie's path is the request's directory or one above it. The path must end in a slash.
bool applies(const Fields& cookie, QByteArrayView directory)
{
    const qint32 slashes = url::countOccurrences("/", cookie.path);
    return slashes > 0 && cookie.path == url::leadingDirectories(directory, slashes - 1);
}

/// Cuts the first line off `content`, and returns it without its end.
QByteArrayView takeLine(QByteArrayView& content)
{
    const qsizetype end = content.indexOf('\n');
    QByteArrayView line = end < 0 ? content : content.first(end);
    content = content.sliced(qMin(line.size() + 1, content.size()));
    if (end >= 0 && line.endsWith('\r'))
        line.chop(1);
    return line;
}

/// The lines except the cookies of these names, without line ends. The lines point into `content`.
QList<QByteArrayView> linesWithout(const QSet<QByteArray>& names, QByteArrayView content)
{
    QList<QByteArrayView> lines;
    while (!content.isEmpty()) {
        const QByteArrayView line = takeLine(content);
        const auto cookie = fieldsOf(line);
        if (!cookie || !names.contains(QByteArray::fromRawData(cookie->name.data(), cookie->name.size())))
            lines += line;
    }
    return lines;
}

/// The lines of cookies, without line ends. Of several cookies with one name the last counts, and a cookie with an
/// empty value gives no line. Adds the names of all cookies to `names`.
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

/// Renames a file over another in one step, so that at any time the old or the new file is there. Unlike the saving of
/// a user's document it does not wait for the disk: it happens for every answer that sets a cookie.
bool takePlaceOf(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(
        QFileInfo(from).filesystemAbsoluteFilePath(), QFileInfo(to).filesystemAbsoluteFilePath(), error);
    return !error;
}

} // namespace

std::optional<QByteArray> cookieFile::read(const QString& fileName)
{
    QFile file(fileName);
    if (!file.exists())
        return QByteArray();
    if (openForReading(file) || file.size() > largestFile)
        return {};
    const QByteArray content = file.readAll();
    return file.error() == QFile::NoError ? std::optional(content) : std::nullopt;
}

bool cookieFile::replace(const QString& fileName, const QByteArray& content)
{
    if (content.size() > largestFile)
        return false;
    // A random name: another program that does not get the lock may write the same host's cookies just now.
    QFile next(QFileInfo(fileName).path() + u'/' + QString::number(QRandomGenerator::system()->generate64())
        + QLatin1String(".tkc.tmp"));
    if (!next.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner))
        return false;
    bool written = allgemein::writeAll(next, content) && next.flush();
    next.close();
    written = written && takePlaceOf(next.fileName(), fileName);
    if (!written)
        next.remove();
    return written;
}

QByteArray cookieFile::merged(QByteArrayView content, const QList<Cookie>& cookies, qsizetype most)
{
    QSet<QByteArray> names;
    const QByteArrayList added = linesOf(cookies, names);
    QList<QByteArrayView> lines = linesWithout(names, content);
    lines.append({ added.begin(), added.end() });
    QByteArray result;
    for (qsizetype line = qMax<qsizetype>(0, lines.size() - most); line < lines.size(); ++line)
        result.append(lines[line]).append(allgemein::lineEnd);
    return result;
}

void cookieFile::appendPairs(QByteArray& pairs, QByteArrayView content, QByteArrayView directory)
{
    while (!content.isEmpty()) {
        const QByteArrayView line = takeLine(content);
        const auto cookie = line.size() > longestLine ? std::nullopt : fieldsOf(line);
        if (cookie && applies(*cookie, directory))
            pairs.append(' ').append(cookie->name).append('=').append(cookie->value).append(';');
    }
}

bool cookieFile::canBeSent(QByteArrayView path)
{
    return path.startsWith('/') && path.endsWith('/');
}
