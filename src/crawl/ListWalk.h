// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

/// A walk over a list from its head that may rest between steps while the list grows and items are taken out.
class ListWalk {
public:
    /// Walks `list`, which must outlive the walk.
    explicit ListWalk(const FundListe& list)
        : m_list(list)
    {
    }

    /// Starts over at the head.
    void restart() { m_last = nullptr; }
    /// The next node; nullptr at the end of the list, where the walk waits for more.
    FundKnoten* next()
    {
        FundKnoten* const knoten = m_last ? m_last->naechster : m_list.getStart();
        if (knoten)
            m_last = knoten;
        return knoten;
    }
    /// Must be told before a node is taken out, since a removed node leads nowhere.
    void removing(const FundKnoten* knoten)
    {
        if (m_last == knoten)
            m_last = knoten->vorheriger;
    }

private:
    const FundListe& m_list;
    FundKnoten* m_last = nullptr;
};
