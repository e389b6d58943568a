// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/SubUrl.h"

#include <QTreeView>

#include <optional>
#include <utility>
#include <vector>

class HostTree;

/// The tree of hosts and directories. The current node is always the chosen branch, however it became the current one.
/// Expanded nodes stay expanded when the tree is built anew.
class HostTreeView final : public QTreeView {
    Q_OBJECT

public:
    /// `tree` must outlive the view.
    HostTreeView(HostTree& tree, QWidget* parent);

    /// Expands the nodes of this URL's host, as soon as they exist.
    void expandHostOf(const QByteArray& url);
    /// Makes the root the current node. Call it when the chosen branch was given up elsewhere.
    void showRoot();

signals:
    /// Another branch was chosen: by the user, or the root because the chosen one is gone.
    void branchChosen(const SubUrl& branch);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;

private:
    void rememberExpanded();
    void restoreCurrent();
    void expandWanted();

    HostTree& m_tree;
    /// Names a node by a URL below it and its level.
    using Place = std::pair<QByteArray, qint32>;

    [[nodiscard]] Place placeOf(const QModelIndex& index) const;

    std::vector<Place> m_wanted; ///< the nodes to expand as soon as they exist
    std::optional<Place> m_current; ///< the current node before the tree was built anew
    bool m_isQuiet = false; ///< a change of the current node is no choice of a branch
};
