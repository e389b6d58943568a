// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/ItemFetch.h"

#include "base/MIMETypes.h"
#include "http/RequestExtras.h"
#include "http/httpHeader.h"
#include "http/newExchange.h"

#include <utility>

ItemFetch::ItemFetch(
    FundStück& item, const FetchRules& rules, RequestExtras& extras, Connections& connections, QObject* parent)
    : QObject(parent)
    , m_item(item)
    , m_rules(rules)
    , m_extras(extras)
    , m_exchange(newExchange(connections))
{
    connect(m_exchange.get(), &HttpExchange::connected, this, &ItemFetch::onConnected);
    connect(m_exchange.get(), &HttpExchange::headerArrived, this, &ItemFetch::onHeader);
    connect(m_exchange.get(), &HttpExchange::bodyArrived, this, &ItemFetch::onBody);
    connect(m_exchange.get(), &HttpExchange::failed, this, &ItemFetch::onFailed);
    connect(m_exchange.get(), &HttpExchange::closed, this, &ItemFetch::end);
}

void ItemFetch::start()
{
    m_item.zustand = FetchState::Connecting;
    emit reported({ FetchEvent::Connecting, {} });
    m_exchange->start(m_item.adresse);
}

void ItemFetch::close()
{
    m_exchange->abort();
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
    m_exchange->request(m_item.adresse, m_item.referer, m_extras);
}

void ItemFetch::onHeader(const AnswerHead& head)
{
    m_item.statusCode = head.status;
    m_extras.takeCookies(m_rules.takesAllCookies ? head.cookies : head.cookies.mid(0, 1), m_item.adresse);
    if (m_rules.followRelocation && httpHeader::isRelocation(m_item.statusCode)) {
        m_item.zustand = FetchState::Relocated;
        m_location = head.location;
    } else {
        takeAnswer(head);
    }
    if (m_item.zustand != FetchState::ReadingPage)
        m_exchange->skipRest();
}

void ItemFetch::takeAnswer(const AnswerHead& head)
{
    m_item.groesse = head.length;
    m_item.mimeTyp = head.type;
    m_item.sprache = head.language;
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
    emit reported({ FetchEvent::NetError, {}, failure });
    end();
}

void ItemFetch::end()
{
    close();
    emit ended();
}
