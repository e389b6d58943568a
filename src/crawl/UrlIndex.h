// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>

#include <array>

/// Which URLs a list holds, and how often each. It is cut into many small hash tables, so that growing costs a little
/// now and then instead of a standstill over millions of URLs. The URLs' bytes are shared, not copied.
class UrlIndex {
public:
    [[nodiscard]] bool contains(const QByteArray& url) const;
    void insert(const QByteArray& url);
    /// Takes out one of the times that `url` was inserted.
    void remove(const QByteArray& url);
    void clear();

private:
    using Shard = QHash<QByteArray, qint32>;

    [[nodiscard]] static size_t shardOf(const QByteArray& url);

    std::array<Shard, 256> m_shards;
};
