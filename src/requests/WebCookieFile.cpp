// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/WebCookieFile.h"

#include "requests/WebCookieJar.h"

#include <QDateTime>

namespace {

constexpr QByteArrayView firstLine = "# Netscape HTTP Cookie File";
constexpr QByteArrayView httpOnlyMark = "#HttpOnly_";

std::optional<QNetworkCookie> cookieFrom(QByteArray line)
{
    QNetworkCookie cookie;
    cookie.setHttpOnly(line.startsWith(httpOnlyMark));
    if (cookie.isHttpOnly())
        line.remove(0, httpOnlyMark.size());
    const QByteArrayList fields = line.split('\t');
    if (fields.size() != 7 || line.startsWith('#'))
        return {};
    QByteArray domain = fields[0];
    const bool isForHostsBelow = fields[1] == "TRUE";
    if (domain.startsWith('.') != isForHostsBelow)
        domain = isForHostsBelow ? QByteArray('.' + domain) : domain.sliced(1);
    bool isNumber = false;
    const qint64 seconds = fields[4].toLongLong(&isNumber);
    cookie.setDomain(QString::fromUtf8(domain));
    cookie.setPath(QString::fromUtf8(fields[2]));
    cookie.setSecure(fields[3] == "TRUE");
    cookie.setName(fields[5]);
    cookie.setValue(fields[6]);
    if (seconds != 0)
        cookie.setExpirationDate(
            QDateTime::fromSecsSinceEpoch(qBound<qint64>(1, seconds, WebCookieFile::latestExpiry), Qt::UTC));
    return isNumber && WebCookieJar::isStorable(cookie) ? std::optional(cookie) : std::nullopt;
}

QByteArray lineOf(const QNetworkCookie& cookie)
{
    const auto word = [](bool isTrue) {
        return QByteArray(isTrue ? "TRUE" : "FALSE");
    };
    const qint64 seconds = cookie.isSessionCookie()
        ? 0
        : qBound<qint64>(1, cookie.expirationDate().toSecsSinceEpoch(), WebCookieFile::latestExpiry);
    const QByteArrayList fields { cookie.domain().toUtf8(), word(cookie.domain().startsWith(u'.')),
        cookie.path().toUtf8(), word(cookie.isSecure()), QByteArray::number(seconds), cookie.name(), cookie.value() };
    return (cookie.isHttpOnly() ? httpOnlyMark.toByteArray() : QByteArray()) + fields.join('\t');
}

} // namespace

WebCookieFile WebCookieFile::parse(QByteArrayView content)
{
    WebCookieFile file;
    for (qint64 number = 1; !content.isEmpty(); ++number) {
        const qsizetype end = content.indexOf('\n');
        QByteArrayView line = end < 0 ? content : content.first(end);
        content = content.sliced(qMin(line.size() + 1, content.size()));
        while (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty() || line == firstLine)
            continue;
        if (const auto cookie = cookieFrom(line.toByteArray())) {
            file.cookies += *cookie;
            continue;
        }
        file.otherLines += line.toByteArray();
        if (!line.startsWith('#') || line.startsWith(httpOnlyMark))
            file.broken.add(number);
    }
    return file;
}

/// Lines end in LF alone: not every program takes the CR off the value.
QByteArray WebCookieFile::text() const
{
    QByteArray result = firstLine + QByteArray("\n");
    for (const QByteArray& line : otherLines)
        result += line + '\n';
    for (const QNetworkCookie& cookie : cookies)
        result += lineOf(cookie) + '\n';
    return result;
}
