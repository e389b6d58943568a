// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"

#include <utility>

namespace {

constexpr size_t nodesInBlock = 256;

} // namespace

FundKnoten* FundListe::add(FundStück stueck)
{
    if (m_bloecke.empty() || m_bloecke.back().size() == nodesInBlock)
        m_bloecke.emplace_back().reserve(nodesInBlock);
    FundKnoten* const knoten = &m_bloecke.back().emplace_back(FundKnoten { std::move(stueck), nullptr, m_letzter });
    (m_letzter ? m_letzter->naechster : m_erster) = knoten;
    m_letzter = knoten;
    ++m_anzahl;
    m_index.insert(knoten->inhalt.adresse);
    return knoten;
}

void FundListe::remove(FundKnoten* knoten)
{
    if (knoten == m_letzter)
        m_letzter = knoten->vorheriger;
    if (knoten == m_erster)
        m_erster = knoten->naechster;
    if (knoten->naechster)
        knoten->naechster->vorheriger = knoten->vorheriger;
    if (knoten->vorheriger)
        knoten->vorheriger->naechster = knoten->naechster;
    --m_anzahl;
    m_index.remove(knoten->inhalt.adresse);
}

void FundListe::swap(FundListe& other) noexcept
{
    std::swap(m_erster, other.m_erster);
    std::swap(m_letzter, other.m_letzter);
    std::swap(m_anzahl, other.m_anzahl);
    std::swap(m_index, other.m_index);
    m_bloecke.swap(other.m_bloecke);
}

bool FundListe::freeSome()
{
    m_erster = m_letzter = nullptr;
    m_anzahl = 0;
    if (m_bloecke.empty())
        return m_index.forgetSome();
    m_bloecke.pop_back();
    return true;
}

void FundListe::Löschen()
{
    m_index.clear();
    m_bloecke.clear();
    m_erster = m_letzter = nullptr;
    m_anzahl = 0;
}
