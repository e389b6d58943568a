// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/SetCookieValue.h"

#include "base/allgemein.h"

namespace setCookieValue {

namespace {

using allgemein::notFound;

/// Removes the first and the last byte if the first is a double quote. The last byte is not checked.
std::optional<QByteArray> unquoted(const QByteArray& text)
{
    if (!text.startsWith('"'))
        return text;
    if (text.size() < 2)
        return {};
    return text.sliced(1, text.size() - 2);
}

} // namespace

std::optional<QByteArray> cookieName(const QByteArray& field)
{
    const qsizetype equals = field.indexOf('=');
    if (equals == notFound)
        return {};
    return field.first(equals);
}

std::optional<QByteArray> cookieValue(const QByteArray& field)
{
    const qsizetype start = field.indexOf('=') + 1;
    const qsizetype end = field.indexOf(';', start);
    if (end == notFound)
        return {};
    return unquoted(field.sliced(start, end - start));
}

std::optional<QByteArray> cookiePath(const QByteArray& field)
{
    constexpr QByteArrayView attribute = "path=";
    // `notFound` is -1, so without the attribute the path starts at index 4.
    const qsizetype start = allgemein::indexOfNoCase(field, attribute) + attribute.size();
    const qsizetype end = field.indexOf(';', start);
    return unquoted(field.mid(start, end == notFound ? -1 : end - start));
}

} // namespace setCookieValue
