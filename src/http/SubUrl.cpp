// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/SubUrl.h"

#include "http/url.h"

#include <QStringBuilder>

namespace {

/// With "http://" in front when there is no protocol. A text with a "/" before its first ":" has none, such as
/// "h/go?to=http://i".
QByteArray withProtocol(const QByteArray& typed)
{
    return url::protocolOf(typed).contains('/') ? "http://" + typed : url::withProtocol(typed);
}

/// The URL up to its port, as `url::subUrl` writes it.
QByteArray originOf(const QByteArray& url)
{
    return url::protocolOf(url) + "://" + url::hostOf(url) + ':' + QByteArray::number(url::portOf(url));
}

} // namespace

SubUrl SubUrl::fromText(const QByteArray& typed)
{
    const QByteArray url = withProtocol(typed);
    const QByteArrayView host = url::hostOf(url);
    const qint32 labels = url::labelCount(host);
    // Keep a text that is a directory already: with a ":" in its path, `subUrl` would take the host to reach up to that
    // and make the text longer.
    const QByteArray origin = originOf(url);
    if (url.startsWith(QByteArray(origin + '/')) && url.endsWith('/'))
        return { url, labels + url::countOccurrences("/", QByteArrayView(url).sliced(origin.size())) };
    const bool bareHost = host.data() + host.size() == url.constData() + url.size();
    const qint32 level = bareHost ? labels : url::levelCount(url);
    return { url::subUrl(url, level), level };
}

std::vector<SubUrl> SubUrl::levelsOf(const QByteArray& url)
{
    constexpr qint32 most = 100;
    std::vector<SubUrl> entries;
    for (qint32 level = 1; level <= qMin(url::levelCount(url), most); ++level)
        entries.push_back({ url::subUrl(url, level), level });
    return entries;
}

bool SubUrl::matches(const QByteArray& url) const
{
    return url::isSubUrl(text, url, level);
}
