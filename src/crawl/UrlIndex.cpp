// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/UrlIndex.h"

size_t UrlIndex::shardOf(const QByteArray& url)
{
    // A seed of its own: the tables use the program's random one, so their order stays independent of the shard.
    return qHash(url, 0) % std::tuple_size_v<decltype(m_shards)>;
}

bool UrlIndex::contains(const QByteArray& url) const
{
    return m_shards[shardOf(url)].contains(url);
}

void UrlIndex::insert(const QByteArray& url)
{
    ++m_shards[shardOf(url)][url];
}

void UrlIndex::remove(const QByteArray& url)
{
    Shard& shard = m_shards[shardOf(url)];
    const auto entry = shard.find(url);
    if (entry != shard.end() && --entry.value() == 0)
        shard.erase(entry);
}

void UrlIndex::clear()
{
    m_shards.fill({});
}
