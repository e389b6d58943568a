// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>

#include <array>

/// Which URLs a list holds, and how often each. The URLs' bytes are shared, not copied.
///
/// Made for millions of URLs: tables are keyed by hashes, so that a URL that is not there is told by one look without
/// reading the bytes of others; and there are many small tables, so that growing costs a little now and then instead of
/// one long standstill.
class UrlIndex {
public:
    [[nodiscard]] bool contains(const QByteArray& url) const;
    void insert(const QByteArray& url);
    /// Takes out one of the times that `url` was inserted.
    void remove(const QByteArray& url);
    void clear();

private:
    using Shard = QHash<size_t, QByteArray>;

    [[nodiscard]] static size_t hashOf(const QByteArray& url);
    [[nodiscard]] const Shard& shardOf(size_t hash) const { return m_shards[hash % m_shards.size()]; }

    /// The first URL of each hash.
    std::array<Shard, 256> m_shards;
    /// What found its hash taken, by itself or by another URL, and how often. Hardly ever anything.
    QHash<QByteArray, qint32> m_others;
};
