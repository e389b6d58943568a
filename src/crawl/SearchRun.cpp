// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchRun.h"

#include "base/allgemein.h"
#include "crawl/url.h"

#include <QElapsedTimer>

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace {

/// How long an analysis runs before other events get their turn.
constexpr qint64 sliceMilliseconds = 4;

} // namespace

SearchRun::SearchRun(FundListe& list, RequestExtras& extras, QObject* parent)
    : QObject(parent)
    , m_list(list)
    , m_extras(extras)
    , m_walk(list)
{
    for (size_t index = 0; index < connectionCount; ++index) {
        QTimer& timer = m_sock[index].nextSlice;
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, this, [this, index] {
            analyse(index);
            pruefeSuchende();
        });
    }
}

void SearchRun::starteSuche(const SearchOptions& options)
{
    leereSuche();
    m_options = options;
    m_suchAbbruch = false;
    m_searching = true;
    fuegeFundHinzu(m_options.startUrl, 0, m_options.quellUrl, ReferenzTyp::Unbekannt);
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
    // Those that are busy now: what one of them finds must not start the other's next fetch just to be closed as well.
    std::array<bool, connectionCount> busy {};
    std::transform(m_sock.begin(), m_sock.end(), busy.begin(), [](const Sock& sock) { return sock.fetch != nullptr; });
    for (size_t index = 0; index < connectionCount; ++index) {
        if (!busy[index])
            continue;
        m_sock[index].fetch->close();
        closeFetch(index);
    }
    m_suchAbbruch = true;
    m_searching = false;
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
        if (sock.verbindungsKnoten)
            sock.verbindungsKnoten->inhalt.zustand = Zustand::NichtGeholt;
        drop(sock);
    }
}

void SearchRun::fuegeFundHinzu(
    const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ, qint32 relocations)
{
    const auto adresse = newUrl(url);
    if (!adresse)
        return;
    FundStück stueck;
    stueck.adresse = *adresse;
    stueck.tiefe = tiefe;
    stueck.referer = referer;
    stueck.referenzTyp = typ;
    stueck.umleitungen = relocations;
    emit recorded(m_list.add(std::move(stueck)));
}

void SearchRun::record(FundStück item)
{
    const auto adresse = newUrl(item.adresse);
    if (!adresse)
        return;
    item.adresse = *adresse;
    emit recorded(m_list.add(std::move(item)));
}

std::optional<QByteArray> SearchRun::newUrl(const QByteArray& url) const
{
    if (url::hostOf(url).isEmpty() || url.size() > url::longest)
        return {};
    QByteArray adresse = allgemein::onOneLine(url::normalised(url));
    return m_list.istBekannt(adresse) ? std::nullopt : std::optional(std::move(adresse));
}

void SearchRun::pruefeUnterUrl(const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ)
{
    if (m_options.follows(url))
        fuegeFundHinzu(url, tiefe, referer, typ);
}

FundKnoten* SearchRun::nextUnfetched()
{
    while (FundKnoten* const knoten = m_walk.next()) {
        if (knoten->inhalt.zustand == Zustand::NichtGeholt)
            return knoten;
    }
    return nullptr;
}

bool SearchRun::starteAnfrage(size_t index, FundKnoten* knoten)
{
    if (url::protocolOf(knoten->inhalt.adresse) != "http") {
        emit reported(knoten, { FetchEvent::UnsupportedProtocol, {} });
        return false;
    }
    m_sock[index].verbindungsKnoten = knoten;
    openFetch(index);
    return true;
}

void SearchRun::naechsteUrl(size_t index)
{
    m_sock[index].verbindungsKnoten = nullptr;
    if (m_suchAbbruch)
        return;
    while (FundKnoten* const knoten = nextUnfetched()) {
        if (starteAnfrage(index, knoten))
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
    FundKnoten* const knoten = sock.verbindungsKnoten;
    FetchRules rules = m_fetchRules;
    rules.followRelocation = rules.followRelocation && knoten->inhalt.umleitungen < relocationLimit;
    rules.wantsReferences = m_options.readsPagesAt(knoten->inhalt.tiefe);

    sock.fetch = new ItemFetch(knoten->inhalt, rules, m_extras, this);
    connect(sock.fetch, &ItemFetch::reported, this,
        [this, knoten](const FetchReport& report) { emit reported(knoten, report); });
    connect(sock.fetch, &ItemFetch::answered, this, [this, knoten] { emit refreshed(knoten); });
    connect(sock.fetch, &ItemFetch::ended, this, [this, index] {
        closeFetch(index);
        pruefeSuchende();
    });
    sock.fetch->start();
}

void SearchRun::releaseFetch(Sock& sock)
{
    if (ItemFetch* const fetch = std::exchange(sock.fetch, nullptr)) {
        fetch->abort();
        // Not at once: this may have been called by one of its signals.
        fetch->deleteLater();
    }
}

void SearchRun::closeFetch(size_t index)
{
    Sock& sock = m_sock[index];
    const ItemFetch& fetch = *sock.fetch;
    FundKnoten* const knoten = sock.verbindungsKnoten;
    switch (knoten->inhalt.zustand) {
    case Zustand::LaedtHtml:
        sock.analysis.emplace(sock.fetch->takeBody(), knoten->inhalt.adresse, m_options.analysis);
        releaseFetch(sock);
        analyse(index);
        return;
    case Zustand::Umgeleitet:
        relocate(knoten, fetch.location());
        break;
    case Zustand::NichtGeholt:
    case Zustand::Verbindet:
    case Zustand::Angefragt:
    case Zustand::Fertig:
    case Zustand::Fehlgeschlagen:
        break;
    }
    releaseFetch(sock);
    naechsteUrl(index);
}

void SearchRun::relocate(FundKnoten* knoten, const QByteArray& location)
{
    const FundStück& item = knoten->inhalt;
    fuegeFundHinzu(url::resolveReference(item.adresse, location), item.tiefe, item.referer, item.referenzTyp,
        item.umleitungen + 1);
    emit refreshed(knoten);
    emit reported(knoten, { FetchEvent::Relocated, location });
    m_walk.removing(knoten);
    emit removing(knoten);
    m_list.remove(knoten);
}

void SearchRun::analyse(size_t index)
{
    Sock& sock = m_sock[index];
    if (!analyseUntilPause(sock)) {
        sock.nextSlice.start();
        return;
    }
    sock.analysis.reset();
    naechsteUrl(index);
    fuelleVerbindungen();
}

bool SearchRun::analyseUntilPause(Sock& sock)
{
    const FundStück& page = sock.verbindungsKnoten->inhalt;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < sliceMilliseconds) {
        if (m_suchAbbruch)
            return true;
        switch (sock.analysis->next()) {
        case HtmlAnalysis::Step::Reference: {
            const Verweis& verweis = sock.analysis->reference();
            // A file can give an item any depth.
            const qint32 tiefe = qMin(page.tiefe, std::numeric_limits<qint32>::max() - 1) + 1;
            pruefeUnterUrl(verweis.adresse, tiefe, page.adresse, verweis.typ);
            break;
        }
        case HtmlAnalysis::Step::Pause:
            break;
        case HtmlAnalysis::Step::End:
            return true;
        }
    }
    return false;
}

void SearchRun::drop(Sock& sock)
{
    releaseFetch(sock);
    sock.nextSlice.stop();
    sock.analysis.reset();
    sock.verbindungsKnoten = nullptr;
}

void SearchRun::dropAll()
{
    for (Sock& sock : m_sock)
        drop(sock);
    m_searching = false;
    m_walk.restart();
}
