// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/HostTree.h"

#include "base/allgemein.h"
#include "http/url.h"

#include <utility>

namespace {

/// How many items a step of a rebuild adds.
constexpr int itemsPerStep = 16;

bool isInTree(const FundStück& item)
{
    return url::protocolOf(item.adresse) == "http";
}

} // namespace

HostTree::HostTree(const FundListe& list, QObject* parent)
    : QAbstractItemModel(parent)
    , m_list(list)
    , m_told { 0 }
    , m_walk(list)
{
    connect(&m_tellViews, &PacedUpdate::due, this, &HostTree::tellViews);
}

void HostTree::add(const FundStück& item)
{
    ++m_added;
    if (!isInTree(item))
        return;
    m_arena.add(item.adresse);
    if (m_arena.count() > static_cast<qint32>(m_told.size()))
        m_tellViews.request();
}

void HostTree::clear()
{
    m_rebuild.clear();
    m_next = {};
    replaceArena({});
    m_added = 0;
}

void HostTree::rebuild()
{
    if (m_added == m_list.getAnzahl())
        return;
    m_added = m_list.getAnzahl();
    m_walk.restart();
    m_next = {};
    m_rebuild.clear();
    m_rebuild.add([this] { return addSome(); });
}

bool HostTree::addSome()
{
    for (int item = 0; item < itemsPerStep; ++item) {
        const FundKnoten* const found = m_walk.next();
        if (!found) {
            replaceArena(std::exchange(m_next, {}));
            return false;
        }
        if (isInTree(found->inhalt))
            m_next.add(found->inhalt.adresse);
    }
    return true;
}

void HostTree::replaceArena(HostArena arena)
{
    m_tellViews.cancel();
    beginResetModel();
    m_arena = std::move(arena);
    m_told.clear();
    for (NodeId id = 0; id < m_arena.count(); ++id)
        m_told.push_back(static_cast<qint32>(m_arena.node(id).children.size()));
    endResetModel();
}

void HostTree::tellViews()
{
    const NodeId firstNew = static_cast<NodeId>(m_told.size());
    // Views cannot ask for the new nodes before they know the parents, so the children of new nodes count as told.
    for (NodeId id = firstNew; id < m_arena.count(); ++id)
        m_told.push_back(static_cast<qint32>(m_arena.node(id).children.size()));
    for (NodeId id = firstNew; id < m_arena.count(); ++id) {
        const NodeId parent = m_arena.node(id).parent;
        qint32& told = m_told[static_cast<size_t>(parent)];
        const qint32 children = static_cast<qint32>(m_arena.node(parent).children.size());
        if (told == children)
            continue;
        beginInsertRows(indexOf(parent), told, children - 1);
        told = children;
        endInsertRows();
    }
}

SubUrl HostTree::branch(const QModelIndex& index) const
{
    return m_arena.branch(idOf(index));
}

QModelIndex HostTree::find(const QByteArray& url, qint32 level) const
{
    const NodeId id = m_arena.find(url, level);
    return id >= 0 && id < static_cast<NodeId>(m_told.size()) ? indexOf(id) : QModelIndex();
}

QByteArray HostTree::urlBelow(const QModelIndex& index) const
{
    return m_arena.node(idOf(index)).url;
}

HostTree::NodeId HostTree::idOf(const QModelIndex& index)
{
    return static_cast<NodeId>(index.internalId());
}

QModelIndex HostTree::indexOf(NodeId id) const
{
    return createIndex(m_arena.node(id).row, 0, static_cast<quintptr>(id));
}

QModelIndex HostTree::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || row >= rowCount(parent) || column != 0)
        return {};
    return indexOf(parent.isValid() ? m_arena.node(idOf(parent)).children[static_cast<size_t>(row)] : HostArena::root);
}

QModelIndex HostTree::parent(const QModelIndex& index) const
{
    if (!index.isValid() || idOf(index) == HostArena::root)
        return {};
    return indexOf(m_arena.node(idOf(index)).parent);
}

int HostTree::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? m_told[static_cast<size_t>(idOf(parent))] : 1;
}

int HostTree::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant HostTree::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const HostArena::Node& node = m_arena.node(idOf(index));
    switch (role) {
    case Qt::DisplayRole:
        return allgemein::shownText(node.name);
    case Qt::DecorationRole:
        return idOf(index) == HostArena::root ? m_hostIcon.icon() : m_folderIcon.icon();
    default:
        return {};
    }
}
