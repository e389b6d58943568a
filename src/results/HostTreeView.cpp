// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/HostTreeView.h"

#include "crawl/url.h"
#include "results/HostTree.h"

#include <QHeaderView>

#include <algorithm>

HostTreeView::HostTreeView(HostTree& tree, QWidget* parent)
    : QTreeView(parent)
    , m_tree(tree)
{
    // Before the view connects itself, since it forgets what is expanded by the same signal.
    connect(&tree, &HostTree::modelAboutToBeReset, this, &HostTreeView::rememberExpanded);
    setModel(&tree);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().height());
    // Deep branches are scrolled to, not cut off.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    rememberExpanded();
    connect(this, &QTreeView::clicked, this, &HostTreeView::choose);
    connect(this, &QTreeView::activated, this, &HostTreeView::choose);
    connect(&tree, &HostTree::modelReset, this, [this] {
        expandWanted();
        if (m_current)
            setCurrentIndex(m_tree.find(m_current->first, m_current->second));
    });
    connect(&tree, &HostTree::rowsInserted, this, &HostTreeView::expandWanted);
}

void HostTreeView::expandHostOf(const QByteArray& url)
{
    m_wanted.clear();
    constexpr qint32 mostLabels = 20; // more than any host has that people visit
    for (qint32 level = 0; level <= qMin(url::labelCount(url::hostOf(url)), mostLabels) + 1; ++level)
        m_wanted.emplace_back(url, level);
    expandWanted();
}

void HostTreeView::choose(const QModelIndex& index)
{
    emit branchChosen(m_tree.branch(index));
}

HostTreeView::Place HostTreeView::placeOf(const QModelIndex& index) const
{
    return { m_tree.urlBelow(index), m_tree.branch(index).level };
}

void HostTreeView::rememberExpanded()
{
    const QModelIndex root = m_tree.index(0, 0);
    m_wanted.push_back(placeOf(root));
    m_current = currentIndex().isValid() ? std::optional(placeOf(currentIndex())) : std::nullopt;
    for (QModelIndex index = root; index.isValid(); index = indexBelow(index)) {
        if (isExpanded(index))
            m_wanted.push_back(placeOf(index));
    }
}

void HostTreeView::expandWanted()
{
    const auto isDone = [this](const auto& wanted) {
        const QModelIndex index = m_tree.find(wanted.first, wanted.second);
        // Expanded without children, a node would not show those that come.
        if (!index.isValid() || m_tree.rowCount(index) == 0)
            return false;
        expand(index);
        return true;
    };
    m_wanted.erase(std::remove_if(m_wanted.begin(), m_wanted.end(), isDone), m_wanted.end());
}
