// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"

#include <utility>

namespace {

constexpr size_t nodesInBlock = 256;

/// How much memory an item takes beside its texts: its node, its slot in the index, of which there are up to twice as
/// many as items, and the blocks of its URL.
constexpr qint64 bytesOfItem = sizeof(FundKnoten) + 2 * 32 + 40;

} // namespace

FundKnoten* FundListe::add(FundStück item)
{
    if (m_blocks.empty() || m_blocks.back().size() == nodesInBlock)
        m_blocks.emplace_back().reserve(nodesInBlock);
    FundKnoten* const node = &m_blocks.back().emplace_back(std::move(item), m_letzter);
    (m_letzter ? m_letzter->m_naechster : m_erster) = node;
    m_letzter = node;
    ++m_anzahl;
    m_bytes += bytesOfItem + node->inhalt.adresse.size() + node->inhalt.mimeTyp.size() + node->inhalt.sprache.size();
    m_index.insert(node->inhalt.adresse);
    return node;
}

void FundListe::remove(FundKnoten* node)
{
    for (Walk* const walk : m_walks)
        walk->removing(*node);
    if (node == m_letzter)
        m_letzter = node->m_vorheriger;
    if (node == m_erster)
        m_erster = node->m_naechster;
    if (node->m_naechster)
        node->m_naechster->m_vorheriger = node->m_vorheriger;
    if (node->m_vorheriger)
        node->m_vorheriger->m_naechster = node->m_naechster;
    --m_anzahl;
    m_index.remove(node->inhalt.adresse);
}

void FundListe::swap(FundListe& other) noexcept
{
    std::swap(m_erster, other.m_erster);
    std::swap(m_letzter, other.m_letzter);
    std::swap(m_anzahl, other.m_anzahl);
    std::swap(m_bytes, other.m_bytes);
    std::swap(m_index, other.m_index);
    m_reports.swap(other.m_reports);
    m_blocks.swap(other.m_blocks);
    restartWalks();
    other.restartWalks();
}

bool FundListe::freeSome()
{
    restartWalks();
    m_erster = m_letzter = nullptr;
    m_anzahl = 0;
    m_bytes = 0;
    if (m_blocks.empty())
        return m_reports.clearSome() || m_index.forgetSome();
    m_blocks.pop_back();
    return true;
}

void FundListe::Löschen()
{
    restartWalks();
    m_index.clear();
    m_reports.clear();
    m_blocks.clear();
    m_erster = m_letzter = nullptr;
    m_anzahl = 0;
    m_bytes = 0;
}

void FundListe::restartWalks()
{
    for (Walk* const walk : m_walks)
        walk->restart();
}
