// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/RequestExtras.h"
#include "http/WebRules.h"
#include "requests/CookieStore.h"
#include "requests/RequestPrefs.h"

/// Fills requests by the request preferences and the stored cookies, which it looks up for each request.
class RequestProfile final : public RequestExtras {
public:
    /// All must outlive the profile.
    RequestProfile(const RequestPrefs& prefs, CookieStore& cookies, const WebRules& rules);

    [[nodiscard]] std::optional<QByteArray> userAgentLine() const override;
    [[nodiscard]] std::optional<QByteArray> acceptLanguageLine() const override;
    [[nodiscard]] QByteArray cookieLine(const QByteArray& url) const override;
    [[nodiscard]] bool sendsReferer() const override;
    void takeCookies(const QByteArrayList& setCookieValues, const QByteArray& url) override;

private:
    const RequestPrefs& m_prefs;
    CookieStore& m_cookies;
    const WebRules& m_rules;
};
