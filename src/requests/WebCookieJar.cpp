// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/WebCookieJar.h"

#include "base/allgemein.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QHostAddress>
#include <QUrl>

#include <algorithm>

namespace {

/// Drops the first of the cookies for which `isMeant` is true, so that at most `most` of these are left.
template <typename Predicate> void dropOldest(QList<QNetworkCookie>& cookies, qsizetype most, Predicate isMeant)
{
    qsizetype surplus = std::count_if(cookies.cbegin(), cookies.cend(), isMeant) - most;
    if (surplus > 0)
        cookies.removeIf([&](const QNetworkCookie& cookie) { return isMeant(cookie) && surplus-- > 0; });
}

/// Max-Age counts more than Expires, wherever it stands. The library takes the last of them.
QByteArray withMaxAgeLast(const QByteArray& field)
{
    QByteArrayList parts = field.split(';');
    std::stable_partition(parts.begin() + 1, parts.end(),
        [](const QByteArray& part) { return !allgemein::startsWithNoCase(part.trimmed(), "max-age"); });
    return parts.join(';');
}

/// The directory of a URL without the last slash: what holds when a server names no path.
QString defaultPath(const QUrl& url)
{
    const QString path = url.path();
    return path.lastIndexOf(u'/') > 0 ? path.left(path.lastIndexOf(u'/')) : QStringLiteral("/");
}

bool isExpired(const QNetworkCookie& cookie)
{
    return !cookie.isSessionCookie() && cookie.expirationDate() <= QDateTime::currentDateTimeUtc();
}

/// Gives a cookie the domain that its attribute means for this host. False when the host is outside that domain.
bool settleDomain(QNetworkCookie& cookie, const QString& host)
{
    QString domain = cookie.domain().toLower();
    if (domain.startsWith(u'.'))
        domain.remove(0, 1);
    if (domain.isEmpty() || domain == host) {
        // A public suffix can have cookies of its own; an address has no hosts below it.
        const bool isForOneHost =
            domain.isEmpty() || !QHostAddress(host).isNull() || WebCookieJar::isPublicSuffix(host);
        cookie.setDomain(isForOneHost ? host : u'.' + host);
        return true;
    }
    cookie.setDomain(u'.' + domain);
    return QHostAddress(host).isNull() && host.endsWith(cookie.domain());
}

} // namespace

std::optional<QNetworkCookie> WebCookieJar::fromField(const QByteArray& field, const QUrl& url)
{
    if (!allgemein::isOnOneLine(field))
        return {};
    const QList<QNetworkCookie> cookies = QNetworkCookie::parseCookies(withMaxAgeLast(field));
    if (cookies.size() != 1)
        return {};
    QNetworkCookie cookie = cookies.front();
    if (!cookie.path().startsWith(u'/'))
        cookie.setPath(defaultPath(url));
    if (!settleDomain(cookie, url.host()) || !isStorable(cookie))
        return {};
    return cookie;
}

bool WebCookieJar::isPublicSuffix(const QString& domain)
{
    // The library has no function for this question. It refuses the cookies of such a domain.
    class Asked final : public QNetworkCookieJar {
    public:
        using QNetworkCookieJar::validateCookie;
    };
    static const Asked asked;
    QNetworkCookie cookie("n", "v");
    cookie.setDomain(u'.' + domain);
    QUrl url(QStringLiteral("http://h/"));
    url.setHost(QStringLiteral("x.") + domain);
    return !asked.validateCookie(cookie, url);
}

bool WebCookieJar::isStorable(const QNetworkCookie& cookie)
{
    const QByteArray domain = cookie.domain().toUtf8();
    const QByteArray path = cookie.path().toUtf8();
    if (cookie.name().isEmpty() || domain.isEmpty() || domain == "." || !path.startsWith('/')
        || cookie.name().size() + cookie.value().size() + domain.size() + path.size() > longest)
        return false;
    using allgemein::isOnOneLine;
    const bool isClean = isOnOneLine(cookie.name()) && isOnOneLine(cookie.value()) && isOnOneLine(domain)
        && isOnOneLine(path) && !cookie.name().contains(';') && !cookie.value().contains(';');
    return isClean && !(domain.startsWith('.') && isPublicSuffix(cookie.domain().mid(1)));
}

void WebCookieJar::setCookies(QList<QNetworkCookie> cookies)
{
    cookies.removeIf(isExpired);
    setAllCookies(cookies);
}

bool WebCookieJar::insertCookie(const QNetworkCookie& cookie)
{
    QList<QNetworkCookie> cookies = allCookies();
    cookies.removeIf([&](const QNetworkCookie& old) { return old.hasSameIdentifier(cookie); });
    if (!isExpired(cookie))
        cookies += cookie;
    const auto isOfDomain = [&](const QNetworkCookie& old) {
        return old.domain() == cookie.domain();
    };
    const bool isFull =
        cookies.size() > most || std::count_if(cookies.cbegin(), cookies.cend(), isOfDomain) > mostOfADomain;
    if (isFull) {
        cookies.removeIf(isExpired);
        dropOldest(cookies, mostOfADomain, isOfDomain);
        dropOldest(cookies, most, [](const QNetworkCookie&) { return true; });
    }
    setAllCookies(cookies);
    return !isExpired(cookie);
}

QByteArray WebCookieJar::line(const QUrl& url) const
{
    QByteArray pairs;
    for (const QNetworkCookie& cookie : cookiesForUrl(url))
        pairs += cookie.toRawForm(QNetworkCookie::NameAndValueOnly) + "; ";
    return pairs.isEmpty() ? QByteArray() : "Cookie: " + pairs.chopped(2) + "\r\n";
}
