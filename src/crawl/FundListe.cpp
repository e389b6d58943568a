// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"

#include <utility>

FundListe::~FundListe()
{
    Löschen();
}

FundKnoten* FundListe::add(FundStück stueck)
{
    auto* const knoten = new FundKnoten { std::move(stueck), nullptr, m_letzter };
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
    m_entfernte.emplace_back(knoten);
}

void FundListe::swap(FundListe& other) noexcept
{
    std::swap(m_erster, other.m_erster);
    std::swap(m_letzter, other.m_letzter);
    std::swap(m_anzahl, other.m_anzahl);
    std::swap(m_index, other.m_index);
    m_entfernte.swap(other.m_entfernte);
}

void FundListe::Löschen()
{
    m_index.clear();
    for (FundKnoten* knoten = m_erster; knoten;)
        delete std::exchange(knoten, knoten->naechster);
    m_erster = m_letzter = nullptr;
    m_anzahl = 0;
    m_entfernte.clear();
}
