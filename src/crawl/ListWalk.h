// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"

#include <type_traits>
#include <utility>

/// A walk along a list from its head, which may rest between steps while the list grows and loses items. A walk along
/// a `const FundListe` gives const nodes.
template <typename List> class ListWalk final : private FundListe::Walk {
public:
    using Node = std::conditional_t<std::is_const_v<List>, const FundKnoten, FundKnoten>;

    /// Walks along `list`, which must outlive the walk.
    explicit ListWalk(List& list)
        : m_list(list)
    {
        m_list.enter(*this);
    }
    ~ListWalk() { m_list.leave(*this); }
    Q_DISABLE_COPY_MOVE(ListWalk)

    /// Starts over at the head.
    void restart() override { m_last = nullptr; }
    /// The next node; nullptr at the end of the list, where the walk waits for more.
    [[nodiscard]] Node* next()
    {
        Node* const node = m_last ? m_last->naechster() : m_list.getStart();
        if (node)
            m_last = node;
        return node;
    }

private:
    void removing(const FundKnoten& node) override
    {
        if (m_last == &node)
            m_last = m_last->vorheriger();
    }

    List& m_list;
    Node* m_last = nullptr; ///< the node that `next` gave last; nullptr before the first
};
