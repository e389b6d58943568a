// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/HostArena.h"

#include "http/url.h"

namespace {

/// The length of `url` without its file name.
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
    for (const QByteArray& piece : url::components(url, deepestLevel)) {
        const Key key(id, piece);
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
    if (level < 0 || level > deepestLevel)
        return none;
    const QByteArrayList pieces = url::components(url, level);
    NodeId id = pieces.size() == level ? root : none;
    for (qsizetype piece = 0; piece < pieces.size() && id != none; ++piece)
        id = m_children.value(Key(id, pieces[piece]), none);
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
