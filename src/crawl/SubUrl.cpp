// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SubUrl.h"

#include "crawl/url.h"

SubUrl SubUrl::fromText(const QByteArray& typed)
{
    const QByteArray url = url::withProtocol(typed);
    const QByteArrayView host = url::hostOf(url);
    const qint32 labels = url::labelCount(host);
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
    return url::subUrl(url, level) == text;
}
