// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchRun.h"

#include "base/MIMETypes.h"
#include "base/allgemein.h"
#include "crawl/httpHeader.h"
#include "crawl/url.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

namespace {

/// How long an analysis runs before other events get their turn.
constexpr qint64 sliceMilliseconds = 4;

} // namespace

SearchRun::SearchRun(FundListe& list, RequestExtras& extras, QObject* parent)
    : QObject(parent)
    , m_list(list)
    , m_extras(extras)
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
    for (Sock& sock : m_sock)
        dropFetch(sock);
    m_searching = false;
    m_walked = nullptr;
    m_list.clear();
    emit cleared();
}

void SearchRun::stopSearch()
{
    // Those that are busy now: what one of them finds must not start the other's next fetch just to be closed as well.
    std::array<bool, connectionCount> busy {};
    std::transform(
        m_sock.begin(), m_sock.end(), busy.begin(), [](const Sock& sock) { return sock.exchange != nullptr; });
    for (size_t index = 0; index < connectionCount; ++index) {
        if (busy[index])
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
    m_walked = nullptr;
    fuelleVerbindungen();
    pruefeSuchende();
}

void SearchRun::abandon()
{
    for (Sock& sock : m_sock) {
        if (sock.verbindungsKnoten)
            sock.verbindungsKnoten->inhalt.zustand = Zustand::NichtGeholt;
        dropFetch(sock);
    }
}

void SearchRun::fuegeFundHinzu(
    const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ, qint32 relocations)
{
    if (url::hostOf(url).isEmpty() || url.size() > longestUrl)
        return;
    const QByteArray adresse = allgemein::onOneLine(url::normalised(url));
    if (m_list.istBekannt(adresse))
        return;
    FundStück stueck;
    stueck.adresse = adresse;
    stueck.tiefe = tiefe;
    stueck.referer = referer;
    stueck.referenzTyp = typ;
    stueck.umleitungen = relocations;
    emit recorded(m_list.add(std::move(stueck)));
}

void SearchRun::pruefeUnterUrl(const QByteArray& url, qint32 tiefe, const QByteArray& referer, ReferenzTyp typ)
{
    // Tested as it would be recorded.
    const QByteArray encoded = allgemein::onOneLine(url);
    if (m_options.follows(encoded))
        fuegeFundHinzu(encoded, tiefe, referer, typ);
}

FundKnoten* SearchRun::nextUnfetched()
{
    while (FundKnoten* const knoten = m_walked ? m_walked->naechster : m_list.getStart()) {
        m_walked = knoten;
        if (knoten->inhalt.zustand == Zustand::NichtGeholt)
            return knoten;
    }
    return nullptr;
}

bool SearchRun::starteAnfrage(size_t index, FundKnoten* knoten)
{
    if (url::protocolOf(knoten->inhalt.adresse) != "http") {
        reportState(knoten, FetchEvent::UnsupportedProtocol);
        return false;
    }
    m_sock[index].verbindungsKnoten = knoten;
    knoten->inhalt.zustand = Zustand::Verbindet;
    reportState(knoten, FetchEvent::Connecting);
    openExchange(index);
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
        if (sock.exchange || sock.analysis)
            return;
    }
    if (std::exchange(m_searching, false))
        emit finished();
}

void SearchRun::openExchange(size_t index)
{
    auto* const exchange = new HttpExchange(this);
    connect(exchange, &HttpExchange::connected, this, [this, index] { onConnected(index); });
    connect(exchange, &HttpExchange::headerArrived, this,
        [this, index](const QByteArray& header) { onHeader(index, header); });
    connect(
        exchange, &HttpExchange::bodyArrived, this, [this, index](const QByteArray& piece) { onBody(index, piece); });
    connect(exchange, &HttpExchange::closed, this, [this, index] { onClosed(index); });
    connect(exchange, &HttpExchange::failed, this,
        [this, index](const SocketFailure& failure) { onFailed(index, failure); });

    Sock& sock = m_sock[index];
    sock.exchange = exchange;
    const QByteArray& adresse = sock.verbindungsKnoten->inhalt.adresse;
    exchange->start(url::hostOf(adresse).toByteArray(), url::portOf(adresse));
}

void SearchRun::closeExchange(Sock& sock)
{
    if (HttpExchange* const exchange = std::exchange(sock.exchange, nullptr)) {
        exchange->abort();
        exchange->deleteLater();
    }
}

void SearchRun::onConnected(size_t index)
{
    const Sock& sock = m_sock[index];
    FundStück& item = sock.verbindungsKnoten->inhalt;
    item.zustand = Zustand::Angefragt;
    reportState(sock.verbindungsKnoten, FetchEvent::Requesting);
    sock.exchange->send(httpHeader::baueAnfrage(item.adresse, item.referer, m_extras));
}

void SearchRun::onHeader(size_t index, const QByteArray& header)
{
    FundKnoten* const knoten = m_sock[index].verbindungsKnoten;
    FundStück& item = knoten->inhalt;
    item.statusCode = httpHeader::statusCode(header);
    m_extras.takeCookie(httpHeader::setCookie(header), item.adresse);
    if (isFollowedRelocation(item))
        relocate(knoten, header);
    else
        takeAnswer(knoten, header);
    if (item.zustand != Zustand::LaedtHtml)
        onClosed(index);
}

bool SearchRun::isFollowedRelocation(const FundStück& item) const
{
    const bool relocated = item.statusCode == 301 || item.statusCode == 302 || item.statusCode == 307;
    return relocated && m_followRelocation && item.umleitungen < relocationLimit;
}

void SearchRun::relocate(FundKnoten* knoten, const QByteArray& header)
{
    FundStück& item = knoten->inhalt;
    const QByteArray location = httpHeader::location(header);
    item.zustand = Zustand::Umgeleitet;
    fuegeFundHinzu(url::resolveReference(item.adresse, location), item.tiefe, item.referer, item.referenzTyp,
        item.umleitungen + 1);
    emit refreshed(knoten);
    reportState(knoten, FetchEvent::Relocated, location);
    if (m_walked == knoten)
        m_walked = knoten->vorheriger;
    m_list.remove(knoten);
}

void SearchRun::takeAnswer(FundKnoten* knoten, const QByteArray& header)
{
    FundStück& item = knoten->inhalt;
    item.groesse = httpHeader::contentLength(header);
    item.mimeTyp = httpHeader::contentType(header);
    item.sprache = httpHeader::contentLanguage(header);
    emit refreshed(knoten);
    const bool wanted = MIMETypes::isHTML(item.mimeTyp) && m_options.readsPagesAt(item.tiefe);
    item.zustand = wanted ? Zustand::LaedtHtml : Zustand::Fertig;
}

void SearchRun::onFailed(size_t index, const SocketFailure& failure)
{
    Sock& sock = m_sock[index];
    sock.verbindungsKnoten->inhalt.zustand = Zustand::Fehlgeschlagen;
    const QByteArray fehlerText = QByteArray::number(failure.number) + ':' + allgemein::toSystem(failure.description);
    reportState(sock.verbindungsKnoten, FetchEvent::SocketError, fehlerText);
    onClosed(index);
}

void SearchRun::onBody(size_t index, const QByteArray& piece)
{
    BodyBuffer& body = m_sock[index].empfangsPuffer;
    body.append(piece);
    if (body.size() > m_bodyLimit)
        onClosed(index);
}

void SearchRun::onClosed(size_t index)
{
    closeFetch(index);
    pruefeSuchende();
}

void SearchRun::closeFetch(size_t index)
{
    Sock& sock = m_sock[index];
    closeExchange(sock);
    FundStück& item = sock.verbindungsKnoten->inhalt;
    BodyBuffer body = std::exchange(sock.empfangsPuffer, {});
    switch (item.zustand) {
    case Zustand::Verbindet:
    case Zustand::Angefragt:
        item.zustand = Zustand::Fehlgeschlagen;
        reportState(sock.verbindungsKnoten, FetchEvent::EarlyDisconnect);
        naechsteUrl(index);
        break;
    case Zustand::LaedtHtml:
        sock.analysis.emplace(std::move(body), item.adresse, m_options.analysis);
        analyse(index);
        break;
    case Zustand::Fertig:
    case Zustand::Fehlgeschlagen:
    case Zustand::Umgeleitet:
        naechsteUrl(index);
        break;
    case Zustand::NichtGeholt:
        break;
    }
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
            pruefeUnterUrl(verweis.adresse, page.tiefe + 1, page.adresse, verweis.typ);
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

void SearchRun::reportState(FundKnoten* knoten, FetchEvent event, const QByteArray& detail)
{
    emit reported(knoten, { event, detail });
}

void SearchRun::dropFetch(Sock& sock)
{
    closeExchange(sock);
    sock.nextSlice.stop();
    sock.analysis.reset();
    sock.empfangsPuffer = {};
    sock.verbindungsKnoten = nullptr;
}
