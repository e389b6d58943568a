// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>

/// The lines of a request that depend on the user's preferences, and the store for received cookies.
class RequestExtras {
public:
    virtual ~RequestExtras() = default;

    /// The value of the User-Agent line; nothing when the line is not sent.
    [[nodiscard]] virtual std::optional<QByteArray> userAgentLine() const = 0;
    /// The value of the Accept-Language line; nothing when the line is not sent.
    [[nodiscard]] virtual std::optional<QByteArray> acceptLanguageLine() const = 0;
    /// The complete cookie line for a URL with its line end; empty when no cookie is sent.
    [[nodiscard]] virtual QByteArray cookieLine(const QByteArray& url) const = 0;
    [[nodiscard]] virtual bool sendsReferer() const = 0;
    /// Takes the values of Set-Cookie fields (may be empty) that the host of `url` sent in one answer, if cookies are
    /// accepted.
    virtual void takeCookies(const QByteArrayList& setCookieValues, const QByteArray& url) = 0;
};
