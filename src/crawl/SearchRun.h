// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "crawl/FundListe.h"
#include "crawl/ItemFetch.h"
#include "crawl/ListWalk.h"
#include "crawl/SearchLimits.h"
#include "crawl/SearchOptions.h"
#include "pages/HtmlAnalysis.h"

#include <QObject>

#include <array>
#include <optional>

class Connections;
class RequestExtras;

/// Searches a site: fetches the items of a list in the order in which they were found, over two connections, reads the
/// references of HTML pages, and appends what is new to the list. Everything happens on the thread of its event loop.
class SearchRun final : public QObject {
    Q_OBJECT

public:
    /// An item that this many relocations have led to is recorded with its answer, even if it relocates again.
    static constexpr qint32 relocationLimit = 19;

    /// Works on `list`, with request lines and cookies from `extras`; all three must outlive the run. Nobody else may
    /// empty the list.
    SearchRun(FundListe& list, RequestExtras& extras, Connections& connections, QObject* parent = nullptr);

    /// Empties the list and starts a new search. The start URL must have been completed and validated.
    void starteSuche(const SearchOptions& options);
    /// Drops the running fetches and empties the list.
    void leereSuche();
    /// Drops the running fetches and replaces the items of the list by those of `loaded`.
    void openSearch(FundListe& loaded);
    /// Closes the connections. Each of them may start one more fetch, which ends on its own and without `finished`;
    /// nothing else is started. Items that this cuts short are pending.
    void stopSearch();
    /// Goes on with the items of the list that were not fetched yet, and with those that are pending.
    void continueSearch(const SearchOptions& options);
    /// Drops the running fetches and marks their items as not fetched. For a program that ends after `stopSearch`, so
    /// that a search saved then can be continued later.
    void abandon();

    /// Whether 301, 302 and 307 answers are followed.
    void setFollowRelocation(bool on) { m_fetchRules.followRelocation = on; }
    /// How many bytes of a body are kept; of a longer page the beginning is analysed. 256 MiB by default.
    void setBodyLimit(qsizetype bytes) { m_fetchRules.bodyLimit = bytes; }
    void setLimits(const SearchLimits& limits) { m_limits = limits; }
    [[nodiscard]] const SearchLimits& limits() const { return m_limits; }
    /// True from a start or continue to the end or stop.
    [[nodiscard]] bool isSearching() const { return m_searching; }
    /// The limit that the list has reached, if any.
    [[nodiscard]] std::optional<SearchLimit> reachedLimit() const;

    /// Records a URL, unless it has no host, is too long, or is in the list. `relocations` counts the relocations that
    /// led to it.
    void fuegeFundHinzu(
        const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenceType type, qint32 relocations = 0);

    /// Records an item of an imported list, under the same conditions. A search that is continued fetches it.
    void record(FundStück item);

    // A slot of `finished` or `limitReached` may start or continue a search. The other signals come in the middle of
    // the run's work, so their slots must not call the run.
signals:
    /// All items that were in the list are gone. After `openSearch`, the list has the new ones already.
    void cleared();
    void recorded(FundKnoten* node);
    /// The answer's fields were set in the item, or the item was relocated and taken out of the list. Its node lives
    /// until `cleared`.
    void refreshed(FundKnoten* node);
    /// Something happened to the item's fetch, which its state text tells.
    void reported(FundKnoten* node, const FetchReport& report);
    /// No item is left to fetch and all connections are closed.
    void finished();
    /// The list has reached a limit, so the search was stopped, as `stopSearch` does it.
    void limitReached(SearchLimit limit);

private:
    static constexpr size_t connectionCount = 2;
    /// How long an analysis runs before other events get their turn, in milliseconds.
    static constexpr int analysisSlice = 4;

    struct Sock {
        /// The item that the connection works on; nullptr when it is idle.
        FundKnoten* verbindungsKnoten = nullptr;
        /// nullptr while the socket is closed.
        ItemFetch* fetch = nullptr;
        bool isCut = false; ///< a stop has cut the item's fetch or its analysis short
        std::optional<HtmlAnalysis> analysis;
        StepQueue steps { analysisSlice }; ///< of the analysis
    };

    /// A URL as it would be recorded; nothing when it has no host, is too long, or is in the list.
    [[nodiscard]] std::optional<QByteArray> newUrl(const QByteArray& url) const;
    bool starteAnfrage(size_t index, FundKnoten* node);
    void naechsteUrl(size_t index);
    void fuelleVerbindungen();
    /// Ends the search when all connections are closed. Always called last, since a slot of `finished` may start
    /// another search.
    void pruefeSuchende();
    void pruefeUnterUrl(const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenceType type);
    [[nodiscard]] FundKnoten* nextUnfetched();
    [[nodiscard]] bool isToFetch(const FundKnoten& node) const;
    void stopAtLimit();

    void openFetch(size_t index);
    static void releaseFetch(Sock& sock);
    /// Goes on by the state in which the fetch has left its item.
    void closeFetch(size_t index);
    void relocate(FundKnoten* node, const QByteArray& location);
    /// Keeps a report that ends a fetch as the item's reason, and passes every report on.
    void report(FundKnoten* node, const FetchReport& report);

    /// One step of a page's analysis. Behind the last one, the connections get their next items, and false is returned.
    [[nodiscard]] bool analyse(size_t index);
    /// Records the page's next reference; false when there is none, or the search was stopped.
    [[nodiscard]] bool handOnReference(Sock& sock);
    static void drop(Sock& sock);
    void dropAll();

    FundListe& m_list;
    RequestExtras& m_extras;
    Connections& m_connections;
    SearchOptions m_options;
    std::array<Sock, connectionCount> m_sock;
    /// The walk for the next item to fetch, for both connections: items are fetched in list order, so none before the
    /// walk's place is left.
    ListWalk<FundListe> m_walk;
    SearchLimits m_limits;
    bool m_isStopping = false; ///< a limit was reached; the stop follows
    StepQueue m_freeing; ///< frees dropped items between other events
    bool m_suchAbbruch = false;
    bool m_searching = false;
    FetchRules m_fetchRules;
};
