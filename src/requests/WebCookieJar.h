// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QNetworkCookie>
#include <QNetworkCookieJar>

#include <optional>

/// Cookies by the rules of RFC 6265, in memory. The library knows the rules and the public suffixes; what it reads more
/// loosely than browsers do is settled here. The oldest cookies are first.
class WebCookieJar final : public QNetworkCookieJar {
    Q_OBJECT

public:
    /// How many cookies are kept for a domain, and in all. Beyond that the oldest are dropped, expired ones first.
    static constexpr qsizetype mostOfADomain = 150;
    static constexpr qsizetype most = 3000;
    /// In bytes: the greatest length of name, value, domain and path together.
    static constexpr qsizetype longest = 4096;

    using QNetworkCookieJar::allCookies;

    /// The cookie that a Set-Cookie field of an answer of `url` sets or deletes (an expired one); nothing if the host
    /// may not set it.
    [[nodiscard]] static std::optional<QNetworkCookie> fromField(const QByteArray& field, const QUrl& url);
    /// Whether a cookie can be stored at all: it has a name, fits the bounds and one line, and is for no public suffix.
    [[nodiscard]] static bool isStorable(const QNetworkCookie& cookie);
    /// Whether a domain is one under which anybody can have a host, such as "co.uk".
    [[nodiscard]] static bool isPublicSuffix(const QString& domain);

    /// Replaces all cookies by those of a list that have not expired.
    void setCookies(QList<QNetworkCookie> cookies);
    /// Adds a cookie in the place of an older one of the same name, domain and path; an expired one only drops that.
    bool insertCookie(const QNetworkCookie& cookie) override;
    /// The complete Cookie line of a request for `url`; empty when no cookie applies.
    [[nodiscard]] QByteArray line(const QUrl& url) const;
};
