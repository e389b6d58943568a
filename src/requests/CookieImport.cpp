// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieImport.h"

#include "base/allgemein.h"
#include "requests/CookiesTxt.h"
#include "requests/FirefoxDatabase.h"

#include <utility>

namespace {

/// Browsers write a dot in front of a domain. The store looks for files named after plain domains only.
QByteArray withoutLeadingDot(const QByteArray& host)
{
    return host.startsWith('.') ? host.sliced(1) : host;
}

} // namespace

CookieImport::CookieImport(std::unique_ptr<CookieSource> source, CookieStore& store)
    : m_source(std::move(source))
    , m_store(store)
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
    const QByteArray host = withoutLeadingDot(foreign.host);
    const Cookie& cookie = foreign.cookie;
    if (!m_store.isStorable(host, cookie))
        return;
    QList<Cookie>& cookies = m_cookies[host];
    if (cookies.isEmpty())
        m_hosts += host;
    cookies += cookie;
    m_bytes += host.size() + cookie.path.size() + cookie.name.size() + cookie.value.size();
}

void CookieImport::storeNext()
{
    const QByteArray host = m_hosts.takeLast();
    const QList<Cookie> cookies = m_cookies.take(host);
    if (m_store.saveCookies(host, cookies))
        m_count += cookies.size();
    else if (!m_error)
        m_error = { ImportError::CookieFile, allgemein::fromSystem(host) };
    if (m_hosts.isEmpty())
        m_bytes = 0;
}
