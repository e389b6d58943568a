// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

/// The three parts of a Set-Cookie value that the cookie store keeps. Each reader returns nothing where the value
/// cannot be cut; such a cookie is not stored.
namespace SetCookieValue {

/// What stands before the first "=".
[[nodiscard]] std::optional<QByteArray> cookieName(const QByteArray& setCookieValue);
/// What stands between the first "=" and the next ";", without double quotes around it. Nothing without the ";".
[[nodiscard]] std::optional<QByteArray> cookieValue(const QByteArray& setCookieValue);
/// What follows the first "path=" (letter case ignored) up to the next ";", without double quotes around it. Without
/// the attribute, what follows the first four bytes: no "/" in front, so the cookie is kept but matches no request.
[[nodiscard]] std::optional<QByteArray> cookiePath(const QByteArray& setCookieValue);

} // namespace SetCookieValue
