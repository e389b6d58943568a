// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/HostTree.h"

#include "base/allgemein.h"
#include "crawl/url.h"

#include <QElapsedTimer>

#include <utility>

namespace {

/// How long a rebuild runs before other events get their turn.
constexpr int sliceMilliseconds = 8;
/// How many items are added between two looks at the clock.
constexpr int itemsPerLook = 16;

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
    connect(&m_rebuildSlice, &QTimer::timeout, this, &HostTree::rebuildSlice);
}

void HostTree::add(const FundStück& item)
{
    if (!isInTree(item))
        return;
    m_arena.add(item.adresse);
    if (m_arena.count() > static_cast<qint32>(m_told.size()))
        m_tellViews.request();
}

void HostTree::removing(FundKnoten* knoten)
{
    m_walk.removing(knoten);
    m_isStale = true;
}

void HostTree::clear()
{
    m_rebuildSlice.stop();
    m_next = {};
    replaceArena({});
    m_isStale = m_list.getStart() != nullptr;
}

void HostTree::rebuild()
{
    if (!std::exchange(m_isStale, false))
        return;
    m_walk.restart();
    m_next = {};
    m_rebuildSlice.start(0);
}

void HostTree::rebuildSlice()
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(sliceMilliseconds)) {
        for (int item = 0; item < itemsPerLook; ++item) {
            const FundKnoten* const knoten = m_walk.next();
            if (!knoten) {
                m_rebuildSlice.stop();
                replaceArena(std::exchange(m_next, {}));
                return;
            }
            if (isInTree(knoten->inhalt))
                m_next.add(knoten->inhalt.adresse);
        }
    }
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
    // Nobody can ask for the new nodes before their parents are told of, so they may have their children already.
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
