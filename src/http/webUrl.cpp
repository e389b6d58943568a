// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/webUrl.h"

#include "http/url.h"

#include <QUrl>

QByteArray webUrl::resolved(const QByteArray& base, const QByteArray& reference)
{
    return QUrl::fromEncoded(base).resolved(QUrl::fromEncoded(reference)).toEncoded(QUrl::RemoveFragment);
}

QByteArray webUrl::fromPlainSearch(const QByteArray& url)
{
    const bool isPlain = url::protocolOf(url) == "https" && url::portOf(url) == 80;
    return isPlain ? "https://" + url::hostOf(url) + url::pathOf(url) : url;
}
