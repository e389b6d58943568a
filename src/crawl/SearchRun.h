// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "crawl/FundListe.h"
#include "crawl/HtmlAnalysis.h"
#include "crawl/ItemFetch.h"
#include "crawl/ListWalk.h"
#include "crawl/SearchOptions.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <optional>

class RequestExtras;

/// Searches a site: fetches the items of a list in the order in which they were found, over two connections, reads the
/// references of HTML pages, and appends what is new to the list. Everything happens on the thread of its event loop.
class SearchRun final : public QObject {
    Q_OBJECT

public:
    /// An item that this many relocations have led to is recorded with its answer, even if it relocates again.
    static constexpr qint32 relocationLimit = 19;

    /// Works on `list`, with request lines and cookies from `extras`; both must outlive the run. Only the run may take
    /// items out of the list or empty it.
    SearchRun(FundListe& list, RequestExtras& extras, QObject* parent = nullptr);

    /// Empties the list and starts a new search. The start URL must have been completed and validated.
    void starteSuche(const SearchOptions& options);
    /// Drops what is running and empties the list.
    void leereSuche();
    /// Drops what is running and puts the items of `loaded` in the place of the list's own.
    void openSearch(FundListe& loaded);
    /// Closes the connections and starts nothing more, but for the fetches that the closed ones give rise to, one for
    /// each connection at the most. Those end on their own, without `finished`.
    void stopSearch();
    /// Goes on with the items of the list that were not fetched yet.
    void continueSearch(const SearchOptions& options);
    /// Drops the fetches that are running and gives their items back as not fetched. For a program that ends after
    /// `stopSearch`, so that a search saved then can be continued later.
    void abandon();

    /// Whether 301, 302 and 307 answers are followed.
    void setFollowRelocation(bool on) { m_fetchRules.followRelocation = on; }
    /// How many bytes of a body are kept; a longer page is analysed as far as it came. A gibibyte by default.
    void setBodyLimit(qsizetype bytes) { m_fetchRules.bodyLimit = bytes; }
    /// True from a start or continue to the end or stop.
    [[nodiscard]] bool isSearching() const { return m_searching; }

    /// Records a URL, unless it has no host, is too long, or is in the list. `relocations` counts the relocations that
    /// led to it.
    void fuegeFundHinzu(
        const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ, qint32 relocations = 0);

    /// Records an item of a list, under the same conditions. A search that is continued takes it up.
    void record(FundStück item);

    // A slot of `finished` may start or continue a search. The other signals come in the middle of the run's work:
    // their slots only look.
signals:
    /// All items that were in the list are gone. After `openSearch`, others are there already.
    void cleared();
    void recorded(FundKnoten* knoten);
    /// The answer's fields were set in the item.
    void refreshed(FundKnoten* knoten);
    /// The item's state text changes.
    void reported(FundKnoten* knoten, const FetchReport& report);
    /// The item, which was relocated, is about to be taken out of the list. Its node lives until `cleared`.
    void removing(FundKnoten* knoten);
    /// No item is left to fetch and all connections are closed. Views are rebuilt from the list now.
    void finished();

private:
    static constexpr size_t connectionCount = 2;

    struct Sock {
        /// The item that the connection works on; nullptr when it is idle.
        FundKnoten* verbindungsKnoten = nullptr;
        /// nullptr while the socket is closed.
        ItemFetch* fetch = nullptr;
        std::optional<HtmlAnalysis> analysis;
        /// Takes the analysis up again after other events.
        QTimer nextSlice;
    };

    /// A URL as it would be recorded; nothing when it has no host, is too long, or is in the list.
    [[nodiscard]] std::optional<QByteArray> newUrl(const QByteArray& url) const;
    bool starteAnfrage(size_t index, FundKnoten* knoten);
    void naechsteUrl(size_t index);
    void fuelleVerbindungen();
    /// Ends the search when all connections are closed. Always the last thing done, since `finished` may change it all.
    void pruefeSuchende();
    void pruefeUnterUrl(const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ);
    [[nodiscard]] FundKnoten* nextUnfetched();

    void openFetch(size_t index);
    static void releaseFetch(Sock& sock);
    /// Goes on by the state in which the fetch has left its item.
    void closeFetch(size_t index);
    void relocate(FundKnoten* knoten, const QByteArray& location);

    /// Runs one slice of the page's analysis; at its end, gives the connections their next items.
    void analyse(size_t index);
    /// Hands on references until the time of a slice is over; true when the page is finished or the search stopped.
    [[nodiscard]] bool analyseUntilPause(Sock& sock);
    static void drop(Sock& sock);
    void dropAll();

    FundListe& m_list;
    RequestExtras& m_extras;
    SearchOptions m_options;
    std::array<Sock, connectionCount> m_sock;
    /// The walk for the next item to fetch. Items are taken in list order, so whatever a connection has just finished,
    /// nothing before the walk's place is left to fetch.
    ListWalk m_walk;
    StepQueue m_freeing; ///< of dropped items, between other events
    bool m_suchAbbruch = false;
    bool m_searching = false;
    FetchRules m_fetchRules;
};
