// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/webRequest.h"

#include "base/allgemein.h"
#include "http/Origin.h"
#include "http/RequestExtras.h"

#include <QNetworkProxy>

namespace webRequest {

namespace {

QByteArray line(QByteArrayView name, const QByteArray& value)
{
    return name.toByteArray() + ": " + allgemein::onOneLine(value) + "\r\n";
}

QByteArray originText(const Origin& origin)
{
    return (origin.isSecure ? "https://" : "http://") + origin.hostField();
}

QByteArray login(const QNetworkProxy& proxy)
{
    return "Basic " + (proxy.user() + u':' + proxy.password()).toUtf8().toBase64();
}

} // namespace

QByteArray text(const QByteArray& url, const Origin& origin, const QByteArray& referer, const RequestExtras& extras,
    const std::optional<QNetworkProxy>& proxy)
{
    QByteArray request = "GET " + (proxy ? originText(origin) : QByteArray()) + target(url) + " HTTP/1.1\r\n";
    request += line("Host", origin.hostField());
    request += line("Accept", "*/*");
    request += line("Accept-Encoding", "gzip");
    if (proxy && !proxy->user().isEmpty())
        request += line("Proxy-Authorization", login(*proxy));
    if (const auto userAgent = extras.userAgentLine())
        request += line("User-Agent", *userAgent);
    if (const auto languages = extras.acceptLanguageLine())
        request += line("Accept-Language", *languages);
    request += extras.cookieLine(url);
    const QByteArray from = extras.sendsReferer() ? refererFor(url, referer) : QByteArray();
    if (!from.isEmpty())
        request += line("Referer", from);
    return request + "\r\n";
}

QByteArray target(const QByteArray& url)
{
    const qsizetype host = url.indexOf("://") + 3;
    qsizetype start = host;
    while (start < url.size() && !QByteArrayView("/?#\\").contains(url[start]))
        ++start;
    const qsizetype fragment = url.indexOf('#', start);
    const QByteArrayView path = QByteArrayView(url).first(fragment < 0 ? url.size() : fragment).sliced(start);
    QByteArray target = path.startsWith('/') ? QByteArray() : QByteArray("/");
    constexpr char lastAscii = '\x7e';
    for (const char c : path) {
        if (c > ' ' && c <= lastAscii)
            target += c;
        else
            target += '%' + QByteArray(1, c).toHex().toUpper();
    }
    return target;
}

QByteArray refererFor(const QByteArray& url, const QByteArray& page)
{
    const auto to = Origin::of(url);
    const auto from = Origin::of(page);
    if (!to || !from || (from->isSecure && !to->isSecure))
        return {};
    return originText(*from) + (*from == *to ? target(page) : QByteArray("/"));
}

} // namespace webRequest
