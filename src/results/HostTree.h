// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"
#include "base/StyleIcon.h"
#include "crawl/ListWalk.h"
#include "results/HostArena.h"

#include <QAbstractItemModel>
#include <QTimer>

#include <deque>

/// The found URLs as a tree of hosts and directories under one root. Nodes that come are told to the views as often as
/// people can follow.
class HostTree final : public QAbstractItemModel {
    Q_OBJECT

public:
    /// `list` must outlive the model.
    HostTree(const FundListe& list, QObject* parent);

    /// Adds an item's URL, if it is one of "http".
    void add(const FundStück& item);
    /// Must be told before an item is taken out of the list. Its nodes stay until the next rebuild.
    void removing(FundKnoten* knoten);
    /// Leaves nothing but the root.
    void clear();
    /// Makes the tree anew from the list, between other events, unless it holds just what is in the list. At its end
    /// the views are reset.
    void rebuild();

    /// The branch that a node stands for.
    [[nodiscard]] SubUrl branch(const QModelIndex& index) const;
    /// The node for the first `level` pieces of `url`; invalid when there is none.
    [[nodiscard]] QModelIndex find(const QByteArray& url, qint32 level) const;
    /// The first URL that was added below a node.
    [[nodiscard]] QByteArray urlBelow(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    using NodeId = HostArena::NodeId;

    [[nodiscard]] static NodeId idOf(const QModelIndex& index);
    [[nodiscard]] QModelIndex indexOf(NodeId id) const;
    void tellViews();
    void rebuildSlice();
    void replaceArena(HostArena arena);

    const FundListe& m_list;
    HostArena m_arena;
    /// For each node that the views know, how many of its children they know.
    std::deque<qint32> m_told;
    PacedUpdate m_tellViews;

    ListWalk m_walk;
    HostArena m_next; ///< the tree that a rebuild has made so far
    QTimer m_rebuildSlice;
    bool m_isStale = false; ///< the tree is not that of the list
    StyleIcon m_hostIcon { QStyle::SP_DriveNetIcon };
    StyleIcon m_folderIcon { QStyle::SP_DirIcon };
};
