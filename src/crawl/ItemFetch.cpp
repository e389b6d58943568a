// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/ItemFetch.h"

#include "base/MIMETypes.h"
#include "base/allgemein.h"
#include "http/RequestExtras.h"
#include "http/httpHeader.h"
#include "http/url.h"

#include <utility>

ItemFetch::ItemFetch(
    FundStück& item, const FetchRules& rules, RequestExtras& extras, const WebRules& web, QObject* parent)
    : QObject(parent)
    , m_item(item)
    , m_rules(rules)
    , m_extras(extras)
    , m_exchange(web, nullptr)
{
    connect(&m_exchange, &HttpExchange::connected, this, &ItemFetch::onConnected);
    connect(&m_exchange, &HttpExchange::headerArrived, this, &ItemFetch::onHeader);
    connect(&m_exchange, &HttpExchange::bodyArrived, this, &ItemFetch::onBody);
    connect(&m_exchange, &HttpExchange::failed, this, &ItemFetch::onFailed);
    connect(&m_exchange, &HttpExchange::closed, this, &ItemFetch::end);
}

void ItemFetch::start()
{
    m_item.zustand = FetchState::Connecting;
    emit reported({ FetchEvent::Connecting, {} });
    m_exchange.start(url::hostOf(m_item.adresse).toByteArray(), url::portOf(m_item.adresse));
}

void ItemFetch::close()
{
    m_exchange.abort();
    if (m_item.zustand == FetchState::Connecting || m_item.zustand == FetchState::Requested) {
        m_item.zustand = FetchState::Failed;
        emit reported({ FetchEvent::EarlyDisconnect, {} });
    }
}

BodyBuffer ItemFetch::takeBody()
{
    return std::exchange(m_empfangsPuffer, {});
}

void ItemFetch::onConnected()
{
    m_item.zustand = FetchState::Requested;
    emit reported({ FetchEvent::Requesting, {} });
    m_exchange.send(httpHeader::baueAnfrage(m_item.adresse, m_item.referer, m_extras));
}

void ItemFetch::onHeader(const QByteArray& header)
{
    m_item.statusCode = httpHeader::statusCode(header);
    m_extras.takeCookies({ httpHeader::setCookie(header) }, m_item.adresse);
    if (m_rules.followRelocation && httpHeader::isRelocation(m_item.statusCode)) {
        m_item.zustand = FetchState::Relocated;
        m_location = httpHeader::location(header);
    } else {
        takeAnswer(header);
    }
    if (m_item.zustand != FetchState::ReadingPage)
        end();
}

void ItemFetch::takeAnswer(const QByteArray& header)
{
    m_item.groesse = httpHeader::contentLength(header);
    m_item.mimeTyp = httpHeader::contentType(header);
    m_item.sprache = httpHeader::contentLanguage(header);
    emit answered();
    const bool wanted = m_rules.wantsReferences && MIMETypes::isHTML(m_item.mimeTyp);
    m_item.zustand = wanted ? FetchState::ReadingPage : FetchState::Finished;
}

void ItemFetch::onBody(const QByteArray& piece)
{
    m_empfangsPuffer.append(piece);
    if (m_empfangsPuffer.size() > m_rules.bodyLimit)
        end();
}

void ItemFetch::onFailed(const ExchangeFailure& failure)
{
    m_item.zustand = FetchState::Failed;
    const QByteArray number = QByteArray::number(failure.number);
    switch (failure.kind) {
    case ExchangeFailure::System: {
        const QByteArray fehlerText = number + ':' + allgemein::toSystem(failure.description);
        emit reported({ FetchEvent::SocketError, fehlerText });
        break;
    }
    case ExchangeFailure::BadPort:
        emit reported({ FetchEvent::BadPort, number });
        break;
    case ExchangeFailure::Silence:
        emit reported({ FetchEvent::Silence, number });
        break;
    }
    end();
}

void ItemFetch::end()
{
    close();
    emit ended();
}
