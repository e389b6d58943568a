// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FetchReports.h"
#include "crawl/UrlIndex.h"
#include "pages/ReferenceType.h"

#include <QByteArray>

#include <utility>
#include <vector>

/// How far the fetch of a found item has come. Search files hold the numbers.
enum class FetchState : qint32 {
    NotFetched = 0, ///< not yet fetched; the only state from which a fetch starts
    Connecting = 1, ///< connecting
    Requested = 2, ///< connected, the request is sent
    ReadingPage = 3, ///< the header is complete, the body is wanted
    Finished = 4, ///< the header is complete, the body is not wanted
    Failed = 5, ///< socket error, or closed before the header was complete
    Relocated = 6, ///< answered with a relocation that was followed
};

/// One found URL with what is known of it.
struct FundStück {
    QByteArray adresse; ///< normalised absolute URL, the port always written
    qint32 listIndex = 0; ///< row in the results list, from 1; 0 when the item has no row
    FetchState zustand = FetchState::NotFetched;
    qint64 groesse = 0; ///< Content-Length in bytes; -1 when the answer had none, 0 before an answer
    qint32 tiefe = 0; ///< link depth, 0 for the start URL
    qint32 statusCode = 0; ///< HTTP status, 0 before an answer
    QByteArray sprache; ///< Content-Language
    QByteArray mimeTyp; ///< Content-Type with its parameters; "?" when the answer had none, empty before an answer
    QByteArray referer; ///< the URL of the page that holds the reference
    ReferenceType referenzTyp = ReferenceType::Unknown;
    qint16 relocations = 0; ///< how many relocations led here one after the other; not kept in files
    /// The fetch has begun and is not done, or a stop has cut it short. Files and a search that is continued take the
    /// item for not fetched.
    bool isPending = false;
    /// Why the last fetch got no answer, or where it was relocated to; nullptr if it was answered, or was not made by
    /// this program. The item's list owns the report. Not kept in files.
    const FetchReport* reason = nullptr;

    /// The fetch state that a file keeps.
    [[nodiscard]] FetchState keptState() const { return isPending ? FetchState::NotFetched : zustand; }
};

/// One node of a `FundListe`, holding its item. Only the list changes the links.
class FundKnoten {
public:
    FundKnoten(FundStück item, FundKnoten* previous)
        : inhalt(std::move(item))
        , m_vorheriger(previous)
    {
    }

    FundStück inhalt;

    /// The next node; nullptr behind the last.
    [[nodiscard]] FundKnoten* naechster() { return m_naechster; }
    [[nodiscard]] const FundKnoten* naechster() const { return m_naechster; }
    /// The node before; nullptr in front of the first.
    [[nodiscard]] FundKnoten* vorheriger() { return m_vorheriger; }
    [[nodiscard]] const FundKnoten* vorheriger() const { return m_vorheriger; }

private:
    friend class FundListe;

    FundKnoten* m_naechster = nullptr;
    FundKnoten* m_vorheriger = nullptr;
};

/// All found items of a search, in the order of their discovery, with an index by URL. The list owns its nodes; their
/// addresses never change. A const list gives const nodes.
class FundListe {
public:
    /// A walk along the list, as the list sees it. It must call `leave` before it is destroyed.
    class Walk {
    public:
        /// `node` is about to be taken out; a walk that stands on it steps back to the node before.
        virtual void removing(const FundKnoten& node) = 0;
        /// All items are gone, or others have taken their place.
        virtual void restart() = 0;

    protected:
        ~Walk() = default;
    };

    FundListe() = default;
    Q_DISABLE_COPY_MOVE(FundListe)

    /// Appends an item and returns its node. Whether its URL is in the list already is not tested.
    FundKnoten* add(FundStück item);
    [[nodiscard]] qint32 getAnzahl() const { return m_anzahl; }
    /// How much memory the items take, in bytes, removed ones included. Referring URLs are not counted: they share the
    /// bytes of the URLs of their pages.
    [[nodiscard]] qint64 bytes() const { return m_bytes; }
    /// An item that is in the list already has got texts of so many bytes.
    void addBytes(qint64 bytes) { m_bytes += bytes; }
    /// The first node; nullptr in an empty list.
    [[nodiscard]] FundKnoten* getStart() { return m_erster; }
    [[nodiscard]] const FundKnoten* getStart() const { return m_erster; }
    /// The same as `getStart`.
    [[nodiscard]] const FundKnoten* getRoot() const { return m_erster; }
    [[nodiscard]] FundKnoten* getLetzter() { return m_letzter; }
    [[nodiscard]] const FundKnoten* getLetzter() const { return m_letzter; }
    /// Whether an item of the list has exactly this URL. The cost does not grow with the list.
    [[nodiscard]] bool istBekannt(const QByteArray& url) const { return m_index.contains(url); }

    /// Takes a node of this list out. The node keeps its links and its item, and lives until the list is emptied, since
    /// rows and fetches may still refer to it. Walks that stand on it step back.
    void remove(FundKnoten* node);
    /// Empties the list and frees every node, removed ones included. Walks start over.
    void Löschen();
    /// The same as `Löschen`.
    void clear() { Löschen(); }
    /// Frees some of the items, for a list that is not used any more: emptying a long one takes long. False when none
    /// is left.
    bool freeSome();
    /// Keeps a report for the `reason` of items of this list. It lives as long as the items.
    [[nodiscard]] const FetchReport* keep(const FetchReport& report) { return m_reports.keep(report); }
    /// Exchanges all items with those of `other`. No node moves. Walks along either list start over.
    void swap(FundListe& other) noexcept;

    /// From now on `walk` is told of what happens to the list. There should be a handful of walks: each is told of each
    /// removal.
    void enter(Walk& walk) const { m_walks.push_back(&walk); }
    void leave(Walk& walk) const { std::erase(m_walks, &walk); }

private:
    void restartWalks();

    FundKnoten* m_erster = nullptr;
    FundKnoten* m_letzter = nullptr;
    qint32 m_anzahl = 0;
    qint64 m_bytes = 0;
    UrlIndex m_index;
    FetchReports m_reports;
    /// All nodes, also those that were taken out, in blocks that never grow, since no node may move. A walk along the
    /// list is then a walk through memory.
    std::vector<std::vector<FundKnoten>> m_blocks;
    mutable std::vector<Walk*> m_walks;
};
