// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

#include <optional>

/// What the requests of crawl and downloads carry beside their fixed lines, and where a received cookie goes.
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

/// The text of requests, and the readers of single response-header fields.
///
/// A header, as the readers take it, is the received text up to and including the line end before the blank line. Each
/// reader searches it anew and anywhere, so a field is also found at the end of a longer name; sites are known by what
/// this yields, so it must not change.
namespace httpHeader {

/// The GET request for `url`. A value that would break its line is percent-encoded.
[[nodiscard]] QByteArray baueAnfrage(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras);

/// What follows the first `name` + ": " (letter case ignored) up to the next CR; empty without the field.
[[nodiscard]] QByteArray holeFeld(const QByteArray& header, QByteArrayView name);
[[nodiscard]] QByteArray contentLanguage(const QByteArray& header);
[[nodiscard]] QByteArray location(const QByteArray& header);
/// Only the first Set-Cookie field.
[[nodiscard]] QByteArray setCookie(const QByteArray& header);
/// Every Set-Cookie field, in the order of the header. One at the end of a longer name counts too.
[[nodiscard]] QByteArrayList setCookies(const QByteArray& header);
/// The number between the first two blanks behind "HTTP/1" (exact letter case), or behind the first when there is no
/// second; 0 without it.
[[nodiscard]] qint32 statusCode(const QByteArray& header);
/// Whether a status sends the client elsewhere: 301, 302 or 307. (303 is not taken for one.)
[[nodiscard]] bool isRelocation(qint32 status);
/// In bytes; -1 without the field, 0 when its value is not a number.
[[nodiscard]] qint64 contentLength(const QByteArray& header);
/// With its parameters; "?" without the field.
[[nodiscard]] QByteArray contentType(const QByteArray& header);

} // namespace httpHeader
