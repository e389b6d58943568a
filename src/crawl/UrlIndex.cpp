// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/UrlIndex.h"

size_t UrlIndex::hashOf(const QByteArray& url)
{
    // The seed differs from one run of the program to the next, so no site can be made to collide.
    return qHash(url, QHashSeed::globalSeed());
}

bool UrlIndex::contains(const QByteArray& url) const
{
    const size_t hash = hashOf(url);
    const Shard& shard = shardOf(hash);
    const auto first = shard.constFind(hash);
    return (first != shard.constEnd() && *first == url) || (!m_others.isEmpty() && m_others.contains(url));
}

void UrlIndex::insert(const QByteArray& url)
{
    const size_t hash = hashOf(url);
    Shard& shard = m_shards[hash % m_shards.size()];
    if (shard.contains(hash))
        ++m_others[url];
    else
        shard.insert(hash, url);
}

void UrlIndex::remove(const QByteArray& url)
{
    if (const auto other = m_others.find(url); other != m_others.end()) {
        if (--*other == 0)
            m_others.erase(other);
        return;
    }
    const size_t hash = hashOf(url);
    Shard& shard = m_shards[hash % m_shards.size()];
    const auto first = shard.constFind(hash);
    if (first != shard.constEnd() && *first == url)
        shard.erase(first);
}

void UrlIndex::clear()
{
    m_shards.fill({});
    m_others.clear();
}
