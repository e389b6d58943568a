// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/SetCookieValue.h"

#include "base/allgemein.h"

namespace SetCookieValue {

namespace {

using allgemein::notFound;

/// Takes the first and the last byte off a text that begins with a double quote, whatever the last one is.
std::optional<QByteArray> unquoted(const QByteArray& text)
{
    if (!text.startsWith('"'))
        return text;
    if (text.size() < 2)
        return {};
    return text.sliced(1, text.size() - 2);
}

} // namespace

std::optional<QByteArray> cookieName(const QByteArray& setCookieValue)
{
    const qsizetype equals = setCookieValue.indexOf('=');
    if (equals == notFound)
        return {};
    return setCookieValue.first(equals);
}

std::optional<QByteArray> cookieValue(const QByteArray& setCookieValue)
{
    const qsizetype start = setCookieValue.indexOf('=') + 1;
    const qsizetype end = setCookieValue.indexOf(';', start);
    if (end == notFound)
        return {};
    return unquoted(setCookieValue.sliced(start, end - start));
}

std::optional<QByteArray> cookiePath(const QByteArray& setCookieValue)
{
    constexpr QByteArrayView attribute = "path=";
    // One less than the attribute's length when it is missing.
    const qsizetype start = allgemein::indexOfNoCase(setCookieValue, attribute) + attribute.size();
    const qsizetype end = setCookieValue.indexOf(';', start);
    return unquoted(setCookieValue.mid(start, end == notFound ? -1 : end - start));
}

} // namespace SetCookieValue
