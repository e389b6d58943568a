// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/httpHeader.h"
#include "requests/CookieStore.h"
#include "requests/RequestPrefs.h"

/// What requests carry by the user's preferences and stored cookies. Read afresh for each request.
class RequestProfile final : public RequestExtras {
public:
    /// Both must outlive the profile.
    RequestProfile(const RequestPrefs& prefs, const CookieStore& cookies);

    [[nodiscard]] std::optional<QByteArray> userAgentLine() const override;
    [[nodiscard]] std::optional<QByteArray> acceptLanguageLine() const override;
    [[nodiscard]] QByteArray cookieLine(const QByteArray& url) const override;
    [[nodiscard]] bool sendsReferer() const override;
    void takeCookies(const QByteArrayList& setCookieValues, const QByteArray& url) override;

private:
    const RequestPrefs& m_prefs;
    const CookieStore& m_cookies;
};
