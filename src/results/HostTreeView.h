// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/SubUrl.h"

#include <QTreeView>

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
    /// URLs with levels, whose nodes are to be expanded.
    std::vector<std::pair<QByteArray, qint32>> m_wanted;
};
