// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/httpHeader.h"

#include "base/allgemein.h"
#include "http/RequestExtras.h"
#include "http/url.h"

#include <QStringBuilder>

namespace httpHeader {

namespace {

using allgemein::notFound;

/// What follows the first `start` (letter case ignored) up to the next `end` or the end of the header.
std::optional<QByteArray> textBetween(const QByteArray& header, QByteArrayView start, QByteArrayView end)
{
    const qsizetype at = allgemein::indexOfNoCase(header, start);
    if (at == notFound)
        return {};
    const qsizetype from = at + start.size();
    const qsizetype to = header.indexOf(end, from);
    return to == notFound ? header.sliced(from) : header.sliced(from, to - from);
}

QByteArray line(QByteArrayView name, const QByteArray& value)
{
    return name + ": " + allgemein::onOneLine(value) + "\r\n";
}

} // namespace

QByteArray baueAnfrage(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras)
{
    QByteArray request = "GET " + allgemein::onOneLine(url::pathOf(url).toByteArray()) + " HTTP/1.1\r\n";
    request += line("Host", url::hostOf(url).toByteArray());
    request += line("Accept", "*/*");
    request += line("Connection", "close");
    if (const auto userAgent = extras.userAgentLine())
        request += line("User-Agent", *userAgent);
    if (const auto languages = extras.acceptLanguageLine())
        request += line("Accept-Language", *languages);
    request += extras.cookieLine(url);
    if (!referer.isEmpty() && extras.sendsReferer())
        request += line("Referer", referer);
    return request + "\r\n";
}

AnswerHead headOf(const QByteArray& header)
{
    return { statusCode(header), contentLength(header), contentType(header), contentLanguage(header), location(header),
        setCookies(header) };
}

QByteArray holeFeld(const QByteArray& header, QByteArrayView name)
{
    const QByteArray start = name + ": ";
    return textBetween(header, start, "\r").value_or(QByteArray());
}

QByteArray contentLanguage(const QByteArray& header)
{
    return holeFeld(header, "Content-Language");
}

QByteArray location(const QByteArray& header)
{
    return holeFeld(header, "Location");
}

QByteArray setCookie(const QByteArray& header)
{
    return holeFeld(header, "Set-Cookie");
}

QByteArrayList setCookies(const QByteArray& header)
{
    constexpr QByteArrayView start = "Set-Cookie: ";
    QByteArrayList values;
    for (qsizetype at = allgemein::indexOfNoCase(header, start); at != notFound;
         at = allgemein::indexOfNoCase(header, start, at + start.size())) {
        const qsizetype from = at + start.size();
        const qsizetype end = header.indexOf('\r', from);
        values += end == notFound ? header.sliced(from) : header.sliced(from, end - from);
    }
    return values;
}

bool isRelocation(qint32 status)
{
    return status == 301 || status == 302 || status == 307;
}

qint32 statusCode(const QByteArray& header)
{
    const qsizetype version = header.indexOf("HTTP/1");
    const qsizetype blank = version == notFound ? notFound : header.indexOf(' ', version);
    if (blank == notFound)
        return 0;
    const qsizetype end = header.indexOf(' ', blank + 1);
    return allgemein::leadingNumber32(
        end == notFound ? header.sliced(blank + 1) : header.sliced(blank + 1, end - blank - 1));
}

qint64 contentLength(const QByteArray& header)
{
    const auto value = textBetween(header, "Content-Length: ", "\r\n");
    return value ? allgemein::leadingNumber(*value) : -1;
}

QByteArray contentType(const QByteArray& header)
{
    return textBetween(header, "Content-Type: ", "\r\n").value_or("?");
}

} // namespace httpHeader
