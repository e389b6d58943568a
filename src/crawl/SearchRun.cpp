// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchRun.h"

#include "base/allgemein.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "http/url.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

SearchRun::SearchRun(FundListe& list, RequestExtras& extras, Connections& connections, QObject* parent)
    : QObject(parent)
    , m_list(list)
    , m_extras(extras)
    , m_connections(connections)
    , m_walk(list)
{
}

void SearchRun::starteSuche(const SearchOptions& options)
{
    leereSuche();
    m_options = options;
    m_suchAbbruch = false;
    m_searching = true;
    fuegeFundHinzu(m_options.startUrl, 0, m_options.quellUrl, ReferenceType::Unknown);
    if (FundKnoten* const first = nextUnfetched())
        starteAnfrage(0, first);
}

void SearchRun::leereSuche()
{
    FundListe none;
    openSearch(none);
}

void SearchRun::openSearch(FundListe& loaded)
{
    dropAll();
    const auto old = std::make_shared<FundListe>();
    old->swap(m_list);
    m_list.swap(loaded);
    emit cleared();
    m_freeing.add([old] { return old->freeSome(); });
}

void SearchRun::stopSearch()
{
    // First, so that no page that is closed here ends the search.
    m_searching = false;
    // Close only the connections that are busy now: a page that is closed may give the other connection a new item,
    // whose fetch must not be closed before it was sent.
    std::array<bool, connectionCount> busy {};
    std::transform(m_sock.begin(), m_sock.end(), busy.begin(), [](const Sock& sock) { return sock.fetch != nullptr; });
    for (size_t index = 0; index < connectionCount; ++index) {
        if (!busy[index])
            continue;
        m_sock[index].isCut = true;
        m_sock[index].fetch->close();
        closeFetch(index);
    }
    m_suchAbbruch = true;
}

void SearchRun::continueSearch(const SearchOptions& options)
{
    m_options = options;
    m_suchAbbruch = false;
    m_searching = true;
    m_walk.restart();
    fuelleVerbindungen();
    pruefeSuchende();
}

void SearchRun::abandon()
{
    for (Sock& sock : m_sock) {
        if (sock.verbindungsKnoten) {
            sock.verbindungsKnoten->inhalt.zustand = FetchState::NotFetched;
            sock.verbindungsKnoten->inhalt.isPending = false;
        }
        drop(sock);
    }
}

void SearchRun::fuegeFundHinzu(
    const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenceType type, qint32 relocations)
{
    const auto found = newUrl(url);
    if (!found)
        return;
    FundStück item;
    item.adresse = *found;
    item.tiefe = tiefe;
    item.referer = referer;
    item.referenzTyp = type;
    item.relocations = static_cast<qint16>(relocations);
    emit recorded(m_list.add(std::move(item)));
    // Later: this may be in the middle of a page.
    if (m_searching && reachedLimit() && !std::exchange(m_isStopping, true))
        QMetaObject::invokeMethod(this, &SearchRun::stopAtLimit, Qt::QueuedConnection);
}

std::optional<SearchLimit> SearchRun::reachedLimit() const
{
    if (m_list.getAnzahl() >= m_limits.items)
        return SearchLimit::Items;
    return m_list.bytes() >= m_limits.bytes ? std::optional(SearchLimit::Bytes) : std::nullopt;
}

void SearchRun::stopAtLimit()
{
    m_isStopping = false;
    const auto limit = reachedLimit();
    if (!m_searching || !limit)
        return;
    stopSearch();
    emit limitReached(*limit);
}

void SearchRun::record(FundStück item)
{
    const auto found = newUrl(item.adresse);
    if (!found)
        return;
    item.adresse = *found;
    emit recorded(m_list.add(std::move(item)));
}

std::optional<QByteArray> SearchRun::newUrl(const QByteArray& url) const
{
    if (url::hostOf(url).isEmpty() || url.size() > url::longest)
        return {};
    QByteArray found = allgemein::onOneLine(url::normalised(url));
    return m_list.istBekannt(found) ? std::nullopt : std::optional(std::move(found));
}

void SearchRun::pruefeUnterUrl(const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenceType type)
{
    if (m_options.follows(url))
        fuegeFundHinzu(url, tiefe, referer, type);
}

FundKnoten* SearchRun::nextUnfetched()
{
    while (FundKnoten* const node = m_walk.next()) {
        if (isToFetch(*node))
            return node;
    }
    return nullptr;
}

bool SearchRun::isToFetch(const FundKnoten& node) const
{
    const auto isBusyWith = [&node](const Sock& sock) {
        return sock.verbindungsKnoten == &node;
    };
    const FundStück& item = node.inhalt;
    return item.zustand == FetchState::NotFetched
        || (item.isPending && std::none_of(m_sock.begin(), m_sock.end(), isBusyWith));
}

bool SearchRun::starteAnfrage(size_t index, FundKnoten* node)
{
    if (!m_connections.rules().fetches(url::protocolOf(node->inhalt.adresse))) {
        report(node, { FetchEvent::UnsupportedProtocol, {} });
        return false;
    }
    m_sock[index].verbindungsKnoten = node;
    openFetch(index);
    return true;
}

void SearchRun::naechsteUrl(size_t index)
{
    m_sock[index].verbindungsKnoten = nullptr;
    if (m_suchAbbruch)
        return;
    while (FundKnoten* const node = nextUnfetched()) {
        if (starteAnfrage(index, node))
            return;
    }
}

void SearchRun::fuelleVerbindungen()
{
    for (size_t index = 0; index < connectionCount; ++index) {
        if (!m_sock[index].verbindungsKnoten)
            naechsteUrl(index);
    }
}

void SearchRun::pruefeSuchende()
{
    for (const Sock& sock : m_sock) {
        if (sock.fetch || sock.analysis)
            return;
    }
    if (std::exchange(m_searching, false))
        emit finished();
}

void SearchRun::openFetch(size_t index)
{
    Sock& sock = m_sock[index];
    FundKnoten* const node = sock.verbindungsKnoten;
    FetchRules rules = m_fetchRules;
    rules.followRelocation = rules.followRelocation && node->inhalt.relocations < relocationLimit;
    rules.takesAllCookies = m_connections.rules().keepsWebCookies;
    rules.wantsReferences = m_options.readsPagesAt(node->inhalt.tiefe);

    sock.isCut = false;
    node->inhalt.isPending = true;
    sock.fetch = new ItemFetch(node->inhalt, rules, m_extras, m_connections, this);
    connect(sock.fetch, &ItemFetch::reported, this,
        [this, node](const FetchReport& fetchReport) { report(node, fetchReport); });
    connect(sock.fetch, &ItemFetch::answered, this, [this, node] {
        m_list.addBytes(node->inhalt.mimeTyp.size() + node->inhalt.sprache.size());
        emit refreshed(node);
    });
    connect(sock.fetch, &ItemFetch::ended, this, [this, index] { closeFetch(index); });
    sock.fetch->start();
}

void SearchRun::releaseFetch(Sock& sock)
{
    if (ItemFetch* const fetch = std::exchange(sock.fetch, nullptr)) {
        fetch->abort();
        // Later, since one of its signals may have called this.
        fetch->deleteLater();
    }
}

void SearchRun::closeFetch(size_t index)
{
    Sock& sock = m_sock[index];
    const ItemFetch& fetch = *sock.fetch;
    FundKnoten* const node = sock.verbindungsKnoten;
    switch (node->inhalt.zustand) {
    case FetchState::ReadingPage:
        sock.analysis.emplace(sock.fetch->takeBody(), node->inhalt.adresse, m_options.analysis);
        releaseFetch(sock);
        sock.steps.add([this, index] { return analyse(index); });
        return;
    case FetchState::Relocated:
        relocate(node, fetch.location());
        break;
    case FetchState::NotFetched:
    case FetchState::Connecting:
    case FetchState::Requested:
    case FetchState::Finished:
    case FetchState::Failed:
        break;
    }
    node->inhalt.isPending = sock.isCut;
    releaseFetch(sock);
    naechsteUrl(index);
    pruefeSuchende();
}

void SearchRun::relocate(FundKnoten* node, const QByteArray& location)
{
    const FundStück& item = node->inhalt;
    fuegeFundHinzu(url::resolveReference(item.adresse, location), item.tiefe, item.referer, item.referenzTyp,
        item.relocations + 1);
    m_list.remove(node);
    emit refreshed(node);
    report(node, { FetchEvent::Relocated, location });
}

void SearchRun::report(FundKnoten* node, const FetchReport& report)
{
    switch (report.event) {
    case FetchEvent::Connecting:
        node->inhalt.reason = nullptr;
        break;
    case FetchEvent::Requesting:
        break;
    case FetchEvent::UnsupportedProtocol:
    case FetchEvent::Relocated:
    case FetchEvent::EarlyDisconnect:
    case FetchEvent::NetError:
        node->inhalt.reason = m_list.keep(report);
        break;
    }
    emit reported(node, report);
}

bool SearchRun::analyse(size_t index)
{
    if (handOnReference(m_sock[index]))
        return true;
    m_sock[index].verbindungsKnoten->inhalt.isPending = m_sock[index].isCut;
    m_sock[index].analysis.reset();
    naechsteUrl(index);
    fuelleVerbindungen();
    pruefeSuchende();
    return false;
}

bool SearchRun::handOnReference(Sock& sock)
{
    if (m_suchAbbruch || m_isStopping) {
        sock.isCut = true;
        return false;
    }
    const FundStück& page = sock.verbindungsKnoten->inhalt;
    switch (sock.analysis->next()) {
    case HtmlAnalysis::Step::Reference: {
        const PageReference& reference = sock.analysis->reference();
        // A file can give an item any depth.
        const qint32 depth = qMin(page.tiefe, std::numeric_limits<qint32>::max() - 1) + 1;
        pruefeUnterUrl(reference.url, depth, page.adresse, reference.type);
        return true;
    }
    case HtmlAnalysis::Step::Pause:
        return true;
    case HtmlAnalysis::Step::End:
        return false;
    }
    return false;
}

void SearchRun::drop(Sock& sock)
{
    releaseFetch(sock);
    sock.steps.clear();
    sock.analysis.reset();
    sock.verbindungsKnoten = nullptr;
}

void SearchRun::dropAll()
{
    for (Sock& sock : m_sock)
        drop(sock);
    m_searching = false;
}
