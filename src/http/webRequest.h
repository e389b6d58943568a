// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

class QNetworkProxy;
class RequestExtras;
struct Origin;

/// The text of requests over kept connections.
namespace webRequest {

/// The GET request for `url`, whose origin is `origin`. For a proxy that gets the request itself it names the whole URL
/// and carries the login.
[[nodiscard]] QByteArray text(const QByteArray& url, const Origin& origin, const QByteArray& referer,
    const RequestExtras& extras, const std::optional<QNetworkProxy>& proxy);

/// Path and query of a URL as a request names them: without the fragment, with blanks, control characters and bytes
/// beyond ASCII percent-encoded. "/" when there is no path.
[[nodiscard]] QByteArray target(const QByteArray& url);

/// The Referer that a request for `url` carries, by the policy strict-origin-when-cross-origin: the page without its
/// fragment, user and password to the same origin, only its origin to another one, and nothing from https to http.
[[nodiscard]] QByteArray refererFor(const QByteArray& url, const QByteArray& page);

} // namespace webRequest
