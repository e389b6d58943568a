// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/KeptExchange.h"

#include "http/Connections.h"
#include "http/WebRules.h"
#include "http/certificateFault.h"
#include "http/webRequest.h"

#include <QSslSocket>

namespace {

ExchangeFailure::Kind kindOf(FramedAnswer::Fault fault)
{
    switch (fault) {
    case FramedAnswer::Fault::HeaderTooLong:
        return ExchangeFailure::AnswerTooLong;
    case FramedAnswer::Fault::None:
    case FramedAnswer::Fault::NoHttp:
        return ExchangeFailure::AnswerNoHttp;
    case FramedAnswer::Fault::LengthInDoubt:
    case FramedAnswer::Fault::BrokenChunk:
        return ExchangeFailure::AnswerInDoubt;
    case FramedAnswer::Fault::UnknownCoding:
    case FramedAnswer::Fault::BrokenCoding:
        return ExchangeFailure::AnswerCoding;
    case FramedAnswer::Fault::EndedEarly:
        return ExchangeFailure::AnswerCut;
    }
    return ExchangeFailure::AnswerNoHttp;
}

AnswerHead headOf(const FramedAnswer& answer)
{
    const HeaderFields& header = answer.header();
    AnswerHead head;
    head.status = header.status();
    head.length = answer.announcedLength();
    head.type = header.contains("Content-Type") ? header.value("Content-Type").toByteArray() : QByteArray("?");
    head.language = header.value("Content-Language").toByteArray();
    head.location = header.value("Location").toByteArray();
    for (const QByteArrayView cookie : header.values("Set-Cookie"))
        head.cookies += cookie.toByteArray();
    return head;
}

} // namespace

KeptExchange::KeptExchange(Connections& connections, QObject* parent)
    : HttpExchange(parent)
    , m_connections(connections)
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &KeptExchange::onTimeout);
}

KeptExchange::~KeptExchange()
{
    abort();
}

void KeptExchange::start(const QByteArray& url)
{
    const auto origin = Origin::of(url);
    QTimer::singleShot(0, this, [this, origin] {
        if (!origin) {
            fail({ ExchangeFailure::BadUrl });
            return;
        }
        m_origin = *origin;
        obtain();
    });
}

void KeptExchange::obtain()
{
    if (m_ended)
        return;
    m_way = m_connections.proxyFor(m_origin);
    m_proxy = !m_origin.isSecure && m_way.type() == QNetworkProxy::HttpProxy ? std::optional(m_way) : std::nullopt;
    m_socket = m_connections.takeIdle(m_origin);
    m_isReused = m_socket != nullptr;
    if (!m_isReused) {
        connectAnew();
        return;
    }
    listenTo(*m_socket);
    onReady();
}

void KeptExchange::connectAnew()
{
    const QString host = QString::fromLatin1(m_origin.host);
    if (const std::chrono::seconds limit = m_connections.rules().connectLimit; limit.count() > 0)
        m_limit.start(limit);
    if (m_origin.isSecure) {
        auto secure = std::make_unique<QSslSocket>();
        secure->setSslConfiguration(m_connections.tlsFor(m_origin));
        secure->setProxy(m_way);
        connect(secure.get(), &QSslSocket::encrypted, this, &KeptExchange::onReady);
        connect(secure.get(), &QSslSocket::sslErrors, this, &KeptExchange::onSslErrors);
        QSslSocket* const opening = secure.get();
        m_socket = std::move(secure);
        listenTo(*m_socket);
        opening->connectToHostEncrypted(host, m_origin.port);
        return;
    }
    m_socket = std::make_unique<QTcpSocket>();
    listenTo(*m_socket);
    connect(m_socket.get(), &QTcpSocket::connected, this, &KeptExchange::onReady);
    if (m_proxy) {
        // A proxy gets plain requests as they are, so that it may keep what it fetches. Some refuse a tunnel for them.
        m_socket->setProxy(QNetworkProxy::NoProxy);
        m_socket->connectToHost(m_proxy->hostName(), m_proxy->port());
        return;
    }
    m_socket->setProxy(m_way);
    m_socket->connectToHost(host, m_origin.port);
}

void KeptExchange::listenTo(QTcpSocket& socket)
{
    socket.setReadBufferSize(readAhead);
    connect(&socket, &QTcpSocket::readyRead, this, &KeptExchange::readAvailable);
    connect(&socket, &QTcpSocket::disconnected, this, &KeptExchange::onDisconnected);
    connect(&socket, &QTcpSocket::errorOccurred, this, &KeptExchange::onError);
}

void KeptExchange::onReady()
{
    m_limit.stop();
    m_answer.emplace(true);
    // A request that is sent again needs no second word of the owner.
    if (m_request.isEmpty())
        emit connected();
    else
        send();
}

void KeptExchange::request(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras)
{
    m_request = webRequest::text(url, m_origin, referer, extras, m_proxy);
    send();
}

void KeptExchange::send()
{
    listen();
    m_socket->write(m_request);
}

void KeptExchange::listen()
{
    if (const std::chrono::seconds limit = m_connections.rules().silenceLimit; limit.count() > 0)
        m_limit.start(limit);
}

void KeptExchange::onSslErrors(const QList<QSslError>& errors)
{
    auto* const secure = qobject_cast<QSslSocket*>(m_socket.get());
    if (m_connections.rules().exceptedHosts.contains(m_origin.host))
        secure->ignoreSslErrors();
    else
        m_certificateFault = certificateFault::worstOf(errors);
}

void KeptExchange::readAvailable()
{
    while (!m_ended && m_answer && m_socket->bytesAvailable() > 0) {
        listen();
        const QByteArray piece = m_socket->read(qMin(readAhead, m_socket->bytesAvailable()));
        if (m_skipped)
            *m_skipped += piece.size();
        m_answer->take(piece);
        handOn();
        if (m_skipped.value_or(0) > restLimit)
            finish(BodyEnd::Closed);
    }
}

void KeptExchange::handOn()
{
    using Kind = FramedAnswer::Kind;
    while (!m_ended) {
        const FramedAnswer::Portion portion = m_answer->next();
        switch (portion.kind) {
        case Kind::Nothing:
            return;
        case Kind::Header:
            emit headerArrived(headOf(*m_answer));
            break;
        case Kind::Body:
            emit bodyArrived(portion.body);
            break;
        case Kind::End:
            finish(BodyEnd::Whole);
            break;
        case Kind::Broken:
            fail({ kindOf(portion.fault) });
            break;
        }
    }
}

void KeptExchange::skipRest()
{
    m_answer->skipBody();
    m_skipped = 0;
    if (m_answer->announcedLength() > restLimit)
        finish(BodyEnd::Closed);
}

void KeptExchange::onDisconnected()
{
    readAvailable();
    if (m_ended || sendAgain())
        return;
    if (!m_answer || !m_answer->hasBegun()) {
        fail({ ExchangeFailure::System, QAbstractSocket::RemoteHostClosedError, m_socket->errorString() });
        return;
    }
    m_answer->takeEnd();
    handOn();
}

bool KeptExchange::sendAgain()
{
    if (!m_isReused || !m_answer || m_answer->hasBegun())
        return false;
    // The server closed the idle connection just when the request was sent. A second time is no accident.
    m_isReused = false;
    m_answer.reset();
    releaseSocket();
    connectAnew();
    return true;
}

void KeptExchange::onError(QAbstractSocket::SocketError error)
{
    // Read first: after a failed write the socket drops what has arrived.
    readAvailable();
    if (m_ended || error == QAbstractSocket::RemoteHostClosedError || sendAgain())
        return;
    if (m_certificateFault)
        fail(*m_certificateFault);
    else if (error == QAbstractSocket::SslHandshakeFailedError)
        fail(certificateFault::ofHandshake(m_socket->errorString()));
    else
        fail({ ExchangeFailure::System, error, m_socket->errorString() });
}

void KeptExchange::onTimeout()
{
    const bool isConnecting = !m_answer;
    const std::chrono::seconds limit =
        isConnecting ? m_connections.rules().connectLimit : m_connections.rules().silenceLimit;
    fail({ isConnecting ? ExchangeFailure::ConnectLimit : ExchangeFailure::Silence, static_cast<int>(limit.count()) });
}

void KeptExchange::finish(BodyEnd end)
{
    if (m_ended)
        return;
    m_ended = true;
    m_limit.stop();
    // Not before the first answer: servers send sessions behind the handshake.
    const auto* const secure = qobject_cast<QSslSocket*>(m_socket.get());
    if (secure && !m_isReused)
        m_connections.rememberSession(m_origin, secure->sslConfiguration());
    const bool isUsable = m_answer && m_answer->keepsConnection()
        && m_socket->state() == QAbstractSocket::ConnectedState && m_socket->bytesAvailable() == 0;
    if (isUsable) {
        m_socket->disconnect(this);
        m_connections.keep(m_origin, std::move(m_socket));
    } else {
        releaseSocket();
    }
    emit closed(end);
}

void KeptExchange::fail(const ExchangeFailure& failure)
{
    if (m_ended)
        return;
    abort();
    emit failed(failure);
}

void KeptExchange::abort()
{
    m_ended = true;
    m_limit.stop();
    releaseSocket();
}

void KeptExchange::releaseSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    // Later, since one of its signals may have called this.
    m_socket.release()->deleteLater();
}
