// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/SubUrl.h"

#include <QByteArray>
#include <QHash>

#include <deque>
#include <utility>
#include <vector>

/// The nodes of the tree of found URLs. Below the root are the labels of the host (the top-level domain first), then
/// the port as ":80", then the directories. File names have no nodes. A node is named by a number, which is greater
/// than that of its parent.
class HostArena {
public:
    using NodeId = qint32;
    static constexpr NodeId root = 0;
    static constexpr NodeId none = -1;
    /// Directories below this level have no nodes of their own: a server could send any number of them.
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

    /// Adds the missing nodes of a URL. Returns the deepest of its nodes.
    NodeId add(const QByteArray& url);
    /// The node for the first `level` components of `url`; `none` if there is no such node.
    [[nodiscard]] NodeId find(const QByteArray& url, qint32 level) const;
    [[nodiscard]] const Node& node(NodeId id) const { return m_nodes[static_cast<size_t>(id)]; }
    [[nodiscard]] qint32 count() const { return static_cast<qint32>(m_nodes.size()); }
    /// The sub-URL that all URLs below the node have in common.
    [[nodiscard]] SubUrl branch(NodeId id) const;

private:
    using Key = std::pair<NodeId, QByteArray>;

    NodeId addChild(const Key& key, const QByteArray& url);

    /// A deque never moves its elements: moving a million nodes would hold up the window.
    std::deque<Node> m_nodes;
    QHash<Key, NodeId> m_children;
    // The last URL that was added, and its deepest node: the next URL is mostly in the same directory.
    QByteArray m_lastUrl;
    qsizetype m_lastDirectoryEnd = 0;
    NodeId m_lastNode = none;
};
