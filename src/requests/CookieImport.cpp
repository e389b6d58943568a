// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieImport.h"

#include "base/allgemein.h"
#include "requests/CookiesTxt.h"
#include "requests/FirefoxDatabase.h"
#include "requests/WebCookieFile.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace {

/// Browsers write a dot in front of a domain. The store looks for files named after plain domains only.
QByteArray withoutLeadingDot(const QByteArray& host)
{
    return host.startsWith('.') ? host.sliced(1) : host;
}

/// The cookie by RFC 6265. There a dot in front of a domain means the hosts below it.
QNetworkCookie webCookie(const ForeignCookie& foreign)
{
    QNetworkCookie cookie(foreign.cookie.name, foreign.cookie.value);
    cookie.setDomain(QString::fromUtf8(foreign.host));
    cookie.setPath(QString::fromUtf8(foreign.cookie.path));
    cookie.setSecure(foreign.isSecure);
    if (foreign.expiry > 0)
        cookie.setExpirationDate(
            QDateTime::fromSecsSinceEpoch(qMin(foreign.expiry, WebCookieFile::latestExpiry), Qt::UTC));
    return cookie;
}

} // namespace

ImportCount& ImportCount::operator+=(const ImportCount& more)
{
    stored += more.stored;
    neverSent += more.neverSent;
    secure += more.secure;
    expired += more.expired;
    return *this;
}

CookieImport::CookieImport(std::unique_ptr<CookieSource> source, CookieStore& store, Taking taking)
    : m_source(std::move(source))
    , m_store(store)
    , m_taking(taking)
    , m_now(QDateTime::currentSecsSinceEpoch())
{
}

std::unique_ptr<CookieSource> CookieImport::sourceFor(const QString& fileName)
{
    if (FirefoxDatabase::isDatabase(fileName))
        return std::make_unique<FirefoxDatabase>(fileName);
    return std::make_unique<CookiesTxt>(fileName);
}

bool CookieImport::step()
{
    // Normally each host's file is written once, at the end. The bound keeps a hostile file from filling the memory.
    constexpr qsizetype mostBytes = 16 * 1024 * 1024;
    m_isStoring = !m_hosts.isEmpty() && (m_isStoring || !m_source || m_bytes > mostBytes);
    if (m_isStoring)
        storeNext();
    else if (m_source)
        readNext();
    return m_source || !m_hosts.isEmpty();
}

void CookieImport::readNext()
{
    if (m_source->read([this](const ForeignCookie& foreign) { gather(foreign); }))
        return;
    if (!m_error)
        m_error = m_source->error();
    m_passedOver = m_source->passedOver();
    m_source.reset();
}

void CookieImport::gather(const ForeignCookie& foreign)
{
    // That store keeps to https and to the end of a cookie's time, so no cookie does harm there.
    m_store.web().add(webCookie(foreign));
    const QByteArray host = withoutLeadingDot(foreign.host);
    const Cookie& cookie = foreign.cookie;
    if (!m_store.isStorable(host, cookie) || leavesOut(foreign))
        return;
    QList<Cookie>& cookies = m_cookies[host];
    if (cookies.isEmpty())
        m_hosts += host;
    cookies += cookie;
    m_bytes += host.size() + cookie.path.size() + cookie.name.size() + cookie.value.size();
}

/// Counts the cookie if it is left out. One that is both expired and secure counts as expired.
bool CookieImport::leavesOut(const ForeignCookie& foreign)
{
    if (m_taking == Taking::All)
        return false;
    const bool isExpired = foreign.expiry > 0 && foreign.expiry <= m_now;
    m_count.expired += isExpired ? 1 : 0;
    m_count.secure += foreign.isSecure && !isExpired ? 1 : 0;
    return isExpired || foreign.isSecure;
}

void CookieImport::storeNext()
{
    const QByteArray host = m_hosts.takeLast();
    const QList<Cookie> cookies = m_cookies.take(host);
    if (m_store.saveCookies(host, cookies)) {
        m_count.stored += cookies.size();
        m_count.neverSent += std::count_if(
            cookies.cbegin(), cookies.cend(), [](const Cookie& cookie) { return !cookieFile::canBeSent(cookie.path); });
    } else if (!m_error) {
        m_error = { ImportError::CookieFile, allgemein::fromSystem(host) };
    }
    if (m_hosts.isEmpty())
        m_bytes = 0;
}
