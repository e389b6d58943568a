// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/PacedUpdate.h"
#include "base/StepQueue.h"
#include "crawl/ListWalk.h"
#include "results/HostArena.h"
#include "results/window/StyleIcon.h"

#include <QAbstractItemModel>

#include <deque>

/// The found URLs as a tree of hosts and directories under one root. Views are told of new nodes at most every 50 ms.
class HostTree final : public QAbstractItemModel {
    Q_OBJECT

public:
    /// `list` must outlive the model.
    HostTree(const FundListe& list, QObject* parent);

    /// Adds the URL of an item that the list has got, if it is one of "http". When the item is taken out of the list,
    /// its nodes stay until the next rebuild.
    void add(const FundStück& item);
    /// Drops all nodes but the root.
    void clear();
    /// Builds the tree anew from the list, between other events, unless it matches the list already. The views are
    /// reset at the end.
    void rebuild();

    /// The branch that a node stands for.
    [[nodiscard]] SubUrl branch(const QModelIndex& index) const;
    /// The node for the first `level` components of `url`; invalid if there is no such node.
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
    /// A step of a rebuild; false at the end of the list.
    [[nodiscard]] bool addSome();
    void replaceArena(HostArena arena);

    const FundListe& m_list;
    HostArena m_arena;
    /// For each node that the views know, the number of its children that they know.
    std::deque<qint32> m_told;
    PacedUpdate m_tellViews;

    ListWalk<const FundListe> m_walk;
    HostArena m_next; ///< the nodes that a running rebuild has made so far
    StepQueue m_rebuild;
    /// How many items were added. The list has fewer when it has lost some, and more when it was replaced.
    qint32 m_added = 0;
    StyleIcon m_hostIcon { QStyle::SP_DriveNetIcon };
    StyleIcon m_folderIcon { QStyle::SP_DirIcon };
};
