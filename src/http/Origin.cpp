// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/Origin.h"

#include <algorithm>

namespace {

/// The number of a port; nothing if the text is not a number from 1 to 65535.
std::optional<quint16> portNumber(QByteArrayView text)
{
    bool isNumber = false;
    const uint number = text.toUInt(&isNumber);
    if (!isNumber || number < 1 || number > 65535)
        return {};
    return static_cast<quint16>(number);
}

/// What stands between "//" and the path, without user and password.
QByteArrayView authorityOf(QByteArrayView url, qsizetype start)
{
    const auto end = std::find_if(
        url.begin() + start, url.end(), [](char c) { return c == '/' || c == '?' || c == '#' || c == '\\'; });
    const QByteArrayView authority = url.sliced(start, end - url.begin() - start);
    return authority.sliced(authority.lastIndexOf('@') + 1);
}

} // namespace

std::optional<Origin> Origin::of(QByteArrayView url)
{
    constexpr QByteArrayView http = "http://";
    constexpr QByteArrayView https = "https://";
    Origin origin;
    origin.isSecure = url.first(qMin(https.size(), url.size())).compare(https, Qt::CaseInsensitive) == 0;
    if (!origin.isSecure && url.first(qMin(http.size(), url.size())).compare(http, Qt::CaseInsensitive) != 0)
        return {};
    const QByteArrayView authority = authorityOf(url, origin.isSecure ? https.size() : http.size());
    const bool isBracketed = authority.startsWith('[');
    const qsizetype hostEnd = isBracketed ? authority.indexOf(']') : authority.indexOf(':');
    if (isBracketed && hostEnd < 0)
        return {};
    const QByteArrayView host = hostEnd < 0 ? authority : authority.first(hostEnd);
    origin.host = host.sliced(isBracketed ? 1 : 0).toByteArray().toLower();
    if (origin.host.isEmpty())
        return {};
    const QByteArrayView rest = hostEnd < 0 ? QByteArrayView() : authority.sliced(hostEnd + (isBracketed ? 1 : 0));
    if (rest.isEmpty() || rest == ":") {
        origin.port = origin.ownPort();
        return origin;
    }
    const auto port = rest.startsWith(':') ? portNumber(rest.sliced(1)) : std::nullopt;
    if (!port)
        return {};
    origin.port = *port;
    return origin;
}

QByteArray Origin::hostField() const
{
    QByteArray field = host.contains(':') ? '[' + host + ']' : host;
    if (port != ownPort())
        field += ':' + QByteArray::number(port);
    return field;
}
