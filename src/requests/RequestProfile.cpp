// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/RequestProfile.h"

#include "http/url.h"

RequestProfile::RequestProfile(const RequestPrefs& prefs, CookieStore& cookies, const WebRules& rules)
    : m_prefs(prefs)
    , m_cookies(cookies)
    , m_rules(rules)
{
}

std::optional<QByteArray> RequestProfile::userAgentLine() const
{
    return m_prefs.useUserAgent ? std::optional(m_prefs.userAgent) : std::nullopt;
}

std::optional<QByteArray> RequestProfile::acceptLanguageLine() const
{
    return m_prefs.useLanguage ? std::optional(m_prefs.languageHeader) : std::nullopt;
}

QByteArray RequestProfile::cookieLine(const QByteArray& url) const
{
    if (!m_prefs.useCookies)
        return {};
    return m_rules.keepsWebCookies ? m_cookies.web().cookieLine(url) : m_cookies.getCookieHeader(url);
}

bool RequestProfile::sendsReferer() const
{
    return m_prefs.useReferrer;
}

void RequestProfile::takeCookies(const QByteArrayList& setCookieValues, const QByteArray& url)
{
    if (!m_prefs.setCookies)
        return;
    if (m_rules.keepsWebCookies)
        m_cookies.web().take(setCookieValues, url);
    else
        m_cookies.takeSetCookies(setCookieValues, url::hostOf(url).toByteArray());
}
