// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/HostArena.h"

#include "crawl/url.h"

namespace {

/// Up to and including the "/" before the file name.
qsizetype directoryEnd(const QByteArray& url)
{
    return url.lastIndexOf('/') + 1;
}

} // namespace

HostArena::HostArena()
{
    m_nodes.push_back({ "/", "http://", none, 0, 0, {} });
}

HostArena::NodeId HostArena::add(const QByteArray& url)
{
    const qsizetype end = directoryEnd(url);
    if (m_lastNode != none && end == m_lastDirectoryEnd
        && QByteArrayView(url).first(end) == QByteArrayView(m_lastUrl).first(end))
        return m_lastNode;
    NodeId id = root;
    const qint32 levels = qMin(url::levelCount(url), deepestLevel);
    for (qint32 level = 0; level < levels; ++level) {
        const Key key(id, url::urlComponent(url, level, true));
        const auto child = m_children.constFind(key);
        id = child != m_children.constEnd() ? *child : addChild(key, url);
    }
    m_lastUrl = url;
    m_lastDirectoryEnd = end;
    m_lastNode = id;
    return id;
}

HostArena::NodeId HostArena::find(const QByteArray& url, qint32 level) const
{
    NodeId id = root;
    for (qint32 piece = 0; piece < level && id != none; ++piece)
        id = m_children.value(Key(id, url::urlComponent(url, piece, true)), none);
    return id;
}

SubUrl HostArena::branch(NodeId id) const
{
    const Node& place = node(id);
    return { url::subUrl(place.url, place.level), place.level };
}

HostArena::NodeId HostArena::addChild(const Key& key, const QByteArray& url)
{
    const NodeId id = count();
    Node& parent = m_nodes[static_cast<size_t>(key.first)];
    const qint32 row = static_cast<qint32>(parent.children.size());
    const qint32 level = parent.level + 1;
    parent.children.push_back(id);
    m_nodes.push_back({ key.second, url, key.first, row, level, {} });
    m_children.insert(key, id);
    return id;
}
