// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

/// Parses the value of a Set-Cookie field (`field`). Each function returns nothing if its part cannot be found; such a
/// cookie is not stored.
namespace setCookieValue {

/// The text before the first "=".
[[nodiscard]] std::optional<QByteArray> cookieName(const QByteArray& field);
/// The text between the first "=" and the next ";", without double quotes around it. Nothing without the ";".
[[nodiscard]] std::optional<QByteArray> cookieValue(const QByteArray& field);
/// The text behind the first "path=" (in any letter case) up to the next ";", without double quotes around it. Without
/// that attribute, the text behind the first four bytes: such a path rarely begins with "/", so the cookie is stored
/// but matches no request.
[[nodiscard]] std::optional<QByteArray> cookiePath(const QByteArray& field);

} // namespace setCookieValue
