// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/SubUrl.h"

#include <QTreeView>

#include <optional>
#include <utility>
#include <vector>

class HostTree;

/// The tree of hosts and directories. What is expanded stays so when the tree is made anew.
class HostTreeView final : public QTreeView {
    Q_OBJECT

public:
    /// `tree` must outlive the view.
    HostTreeView(HostTree& tree, QWidget* parent);

    /// Expands what leads to the directories of this URL's host, as soon as it is there.
    void expandHostOf(const QByteArray& url);

signals:
    /// The user chose a branch.
    void branchChosen(const SubUrl& branch);

private:
    void choose(const QModelIndex& index);
    void rememberExpanded();
    void expandWanted();

    HostTree& m_tree;
    /// A node: a URL below it, and its level.
    using Place = std::pair<QByteArray, qint32>;

    [[nodiscard]] Place placeOf(const QModelIndex& index) const;

    std::vector<Place> m_wanted; ///< what is to be expanded as soon as it is there
    std::optional<Place> m_current; ///< what was current before the tree was made anew
};
