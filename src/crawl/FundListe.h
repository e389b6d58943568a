// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/UrlIndex.h"

#include <QByteArray>

#include <vector>

/// How far the fetch of a found item has come. Search files hold the numbers.
enum class Zustand : qint32 {
    NichtGeholt = 0, ///< not yet fetched; the only state from which a fetch starts
    Verbindet = 1, ///< connecting
    Angefragt = 2, ///< connected, the request is sent
    LaedtHtml = 3, ///< the header is complete, the body is wanted
    Fertig = 4, ///< the header is complete, the body is not wanted
    Fehlgeschlagen = 5, ///< socket error, or closed before the header was complete
    Umgeleitet = 6, ///< answered with a relocation that was followed
};

/// The kind of HTML construct that led to an item. Search files hold the numbers; a file may hold others.
enum class ReferenzTyp : qint32 { Unbekannt = 0, Anchor = 1, Link = 2, AnySrc = 3, Frame = 4, Img = 5 };

/// One found URL with what is known of it.
struct FundStück {
    QByteArray adresse; ///< normalised absolute URL, the port always written
    qint32 listIndex = 0; ///< row in the results list, from 1; 0 when the item has no row
    Zustand zustand = Zustand::NichtGeholt;
    qint64 groesse = 0; ///< Content-Length in bytes; -1 when the answer had none, 0 before an answer
    qint32 tiefe = 0; ///< link depth, 0 for the start URL
    qint32 statusCode = 0; ///< HTTP status, 0 before an answer
    QByteArray sprache; ///< Content-Language
    QByteArray mimeTyp; ///< Content-Type with its parameters; "?" when the answer had none, empty before an answer
    QByteArray referer; ///< the URL of the page that holds the reference
    ReferenzTyp referenzTyp = ReferenzTyp::Unbekannt;
    qint32 umleitungen = 0; ///< how many relocations led here one after the other; not kept in files
};

/// One node of a `FundListe`, holding its item.
struct FundKnoten {
    FundStück inhalt;
    FundKnoten* naechster = nullptr;
    FundKnoten* vorheriger = nullptr;
};

/// All found items of a search, in the order of their discovery, with an index by URL. The list owns its nodes; their
/// addresses never change.
class FundListe {
public:
    FundListe() = default;
    Q_DISABLE_COPY_MOVE(FundListe)

    /// Appends an item and returns its node. Whether its URL is in the list already is not tested.
    FundKnoten* add(FundStück stueck);
    [[nodiscard]] qint32 getAnzahl() const { return m_anzahl; }
    /// The first node; nullptr in an empty list.
    [[nodiscard]] FundKnoten* getStart() const { return m_erster; }
    /// The same as `getStart`.
    [[nodiscard]] FundKnoten* getRoot() const { return m_erster; }
    [[nodiscard]] FundKnoten* getLetzter() const { return m_letzter; }
    /// Whether an item of the list has exactly this URL. The cost does not grow with the list.
    [[nodiscard]] bool istBekannt(const QByteArray& adresse) const { return m_index.contains(adresse); }

    /// Takes a node of this list out. It keeps its links and its item, and lives until the list is emptied, for the
    /// rows and fetches that still refer to it; a walk must not go on from it.
    void remove(FundKnoten* knoten);
    /// Empties the list and frees every node, removed ones included.
    void Löschen();
    /// The same as `Löschen`.
    void clear() { Löschen(); }
    /// Frees some of the items, for a list that is not used any more: emptying a long one takes long. False when none
    /// is left.
    bool freeSome();
    /// Exchanges all items with those of `other`. No node moves.
    void swap(FundListe& other) noexcept;

private:
    FundKnoten* m_erster = nullptr;
    FundKnoten* m_letzter = nullptr;
    qint32 m_anzahl = 0;
    UrlIndex m_index;
    /// All nodes, also those that were taken out, in blocks that never grow, since no node may move. A walk over the
    /// list is then a walk through memory.
    std::vector<std::vector<FundKnoten>> m_bloecke;
};
