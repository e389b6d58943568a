// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/HostTreeView.h"

#include "http/url.h"
#include "results/window/HostTree.h"

#include <QHeaderView>

#include <algorithm>

HostTreeView::HostTreeView(HostTree& tree, QWidget* parent)
    : QTreeView(parent)
    , m_tree(tree)
{
    // Connected before the view connects itself: on the same signal, the view forgets which nodes are expanded.
    connect(&tree, &HostTree::modelAboutToBeReset, this, &HostTreeView::rememberExpanded);
    setModel(&tree);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().height());
    // As wide as the widest row, so that deep branches are scrolled to and not cut off.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    rememberExpanded();
    connect(&tree, &HostTree::modelReset, this, [this] {
        expandWanted();
        restoreCurrent();
    });
    connect(&tree, &HostTree::rowsInserted, this, &HostTreeView::expandWanted);
    showRoot();
}

void HostTreeView::expandHostOf(const QByteArray& url)
{
    m_wanted.clear();
    constexpr qint32 mostLabels = 20; // more than any real host has
    for (qint32 level = 0; level <= qMin(url::labelCount(url::hostOf(url)), mostLabels) + 1; ++level)
        m_wanted.emplace_back(url, level);
    expandWanted();
}

void HostTreeView::showRoot()
{
    m_isQuiet = true;
    setCurrentIndex(m_tree.index(0, 0));
    m_isQuiet = false;
}

void HostTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (current.isValid() && !m_isQuiet)
        emit branchChosen(m_tree.branch(current));
}

/// Keeps the selection, which is what the user sees, at the current node: Ctrl+click would remove it.
QItemSelectionModel::SelectionFlags HostTreeView::selectionCommand(const QModelIndex& index, const QEvent*) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
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

void HostTreeView::restoreCurrent()
{
    const QModelIndex kept = m_current ? m_tree.find(m_current->first, m_current->second) : QModelIndex();
    m_isQuiet = kept.isValid();
    setCurrentIndex(kept.isValid() ? kept : m_tree.index(0, 0));
    m_isQuiet = false;
}

void HostTreeView::expandWanted()
{
    const auto isDone = [this](const auto& wanted) {
        const QModelIndex index = m_tree.find(wanted.first, wanted.second);
        // A node that is expanded before it has children does not show them later.
        if (!index.isValid() || m_tree.rowCount(index) == 0)
            return false;
        expand(index);
        return true;
    };
    m_wanted.erase(std::remove_if(m_wanted.begin(), m_wanted.end(), isDone), m_wanted.end());
}
