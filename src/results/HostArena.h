// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/SubUrl.h"

#include <QByteArray>
#include <QHash>

#include <deque>
#include <utility>
#include <vector>

/// Found URLs arranged by host and path: below a root come the labels of the host from the top level down, the port as
/// ":80", and the directories; file names make no node. Nodes are known by numbers, a node's being greater than its
/// parent's.
class HostArena {
public:
    using NodeId = qint32;
    static constexpr NodeId root = 0;
    static constexpr NodeId none = -1;
    /// Pieces of a URL beyond this level make no nodes of their own; a server could send any number of them.
    static constexpr qint32 deepestLevel = 250;

    struct Node {
        QByteArray name;
        QByteArray url; ///< the first URL below the node
        NodeId parent = none;
        qint32 row = 0; ///< among the parent's children, from 0
        qint32 level = 0; ///< 0 for the root
        std::vector<NodeId> children; ///< in the order in which they were added
    };

    HostArena();

    /// Adds the nodes of a URL that are missing; returns its last one.
    NodeId add(const QByteArray& url);
    /// The node that stands for the first `level` pieces of `url`; `none` when there is none.
    [[nodiscard]] NodeId find(const QByteArray& url, qint32 level) const;
    [[nodiscard]] const Node& node(NodeId id) const { return m_nodes[static_cast<size_t>(id)]; }
    [[nodiscard]] qint32 count() const { return static_cast<qint32>(m_nodes.size()); }
    /// What the URLs below the node have in common.
    [[nodiscard]] SubUrl branch(NodeId id) const;

private:
    using Key = std::pair<NodeId, QByteArray>;

    NodeId addChild(const Key& key, const QByteArray& url);

    /// A deque, since growing must not move a million nodes at once.
    std::deque<Node> m_nodes;
    QHash<Key, NodeId> m_children;
    /// Where the last URL was added: the next one is mostly from the same directory.
    QByteArray m_lastUrl;
    qsizetype m_lastDirectoryEnd = 0;
    NodeId m_lastNode = none;
};
