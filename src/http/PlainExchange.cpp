// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/PlainExchange.h"

#include "base/allgemein.h"
#include "http/httpHeader.h"
#include "http/url.h"

#include <QEvent>
#include <QNetworkProxy>
#include <QSocketNotifier>

#include <algorithm>

PlainExchange::PlainExchange(const WebRules& rules, QObject* parent)
    : HttpExchange(parent)
    , m_rules(rules)
{
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, &PlainExchange::onSilence);
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(readAhead);
    m_socket.installEventFilter(this);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        listen();
        emit connected();
    });
    connect(&m_socket, &QTcpSocket::readyRead, this, &PlainExchange::readAvailable);
    connect(&m_socket, &QTcpSocket::disconnected, this, &PlainExchange::onDisconnected);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &PlainExchange::onError);
}

PlainExchange::~PlainExchange()
{
    // The socket's destructor emits signals, whose slots use members that would be gone by then.
    abort();
}

void PlainExchange::start(const QByteArray& url)
{
    QTimer::singleShot(
        0, this, [this, host = url::hostOf(url).toByteArray(), port = url::portOf(url)] { connectTo(host, port); });
}

void PlainExchange::connectTo(const QByteArray& host, qint32 port)
{
    if (m_ended)
        return;
    if (port < 1 || port > 65535) {
        fail({ ExchangeFailure::BadPort, port });
        return;
    }
    listen();
    m_socket.connectToHost(allgemein::fromSystem(host), static_cast<quint16>(port));
}

void PlainExchange::watchTries()
{
    for (QSocketNotifier* const notifier : m_socket.findChildren<QSocketNotifier*>())
        notifier->installEventFilter(this);
}

bool PlainExchange::eventFilter(QObject* watched, QEvent* event)
{
    // For each address of a host the socket creates an engine as its child, which creates its notifiers a little later.
    if (watched == &m_socket && event->type() == QEvent::ChildAdded)
        QMetaObject::invokeMethod(this, &PlainExchange::watchTries, Qt::QueuedConnection);
    if (event->type() != QEvent::SockAct || m_socket.state() != QAbstractSocket::ConnectingState)
        return false;
    // The socket library tries again when a connection is reset before it is established. A server that resets every
    // attempt would keep it trying for a minute.
    if (++m_tries == mostTries)
        QTimer::singleShot(0, this, &PlainExchange::endAsClosed);
    return m_tries >= mostTries;
}

void PlainExchange::endAsClosed()
{
    if (m_ended)
        return;
    abort();
    emit closed(BodyEnd::Closed);
}

void PlainExchange::fail(const ExchangeFailure& failure)
{
    if (m_ended)
        return;
    abort();
    emit failed(failure);
}

void PlainExchange::listen()
{
    const bool isBodyWhole = m_announced && *m_announced >= 0 && m_received >= *m_announced;
    std::chrono::seconds limit = m_rules.silenceLimit;
    if (isBodyWhole)
        limit = limit.count() > 0 ? std::min(limit, graceAfterBody) : graceAfterBody;
    if (limit.count() > 0)
        m_silence.start(limit);
}

void PlainExchange::onSilence()
{
    if (m_announced)
        endAsClosed();
    else
        fail({ ExchangeFailure::Silence, static_cast<int>(m_rules.silenceLimit.count()) });
}

void PlainExchange::request(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras)
{
    m_socket.write(httpHeader::baueAnfrage(url, referer, extras));
}

void PlainExchange::abort()
{
    m_ended = true;
    m_silence.stop();
    m_socket.abort();
}

void PlainExchange::readAvailable()
{
    // `read` allocates as many bytes as it is asked for, so ask for no more than there are.
    while (!m_ended && m_socket.bytesAvailable() > 0)
        handOn(m_answer.take(m_socket.read(qMin(readAhead, m_socket.bytesAvailable()))));
}

void PlainExchange::handOn(const AnswerSplitter::Parts& parts)
{
    if (parts.headerIsTooLong) {
        endAsClosed();
        return;
    }
    AnswerHead head;
    if (!parts.header.isEmpty()) {
        head = httpHeader::headOf(parts.header);
        m_announced = head.length;
    }
    m_received += parts.body.size();
    listen();
    if (!parts.header.isEmpty())
        emit headerArrived(head);
    if (!m_ended && !parts.body.isEmpty())
        emit bodyArrived(parts.body);
}

void PlainExchange::onDisconnected()
{
    readAvailable();
    endAsClosed();
}

void PlainExchange::onError(QAbstractSocket::SocketError error)
{
    // Read first: after a failed write the socket drops what has arrived.
    readAvailable();
    // The remote side closing the connection is no failure: `disconnected` follows.
    if (error != QAbstractSocket::RemoteHostClosedError)
        fail({ ExchangeFailure::System, error, m_socket.errorString() });
}
