// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/HttpExchange.h"

#include "base/allgemein.h"

#include <QEvent>
#include <QNetworkProxy>
#include <QSocketNotifier>
#include <QTimer>

#include <utility>

HttpExchange::HttpExchange(QObject* parent)
    : QObject(parent)
{
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(readAhead);
    m_socket.installEventFilter(this);
    connect(&m_socket, &QTcpSocket::connected, this, &HttpExchange::connected);
    connect(&m_socket, &QTcpSocket::readyRead, this, &HttpExchange::readAvailable);
    connect(&m_socket, &QTcpSocket::disconnected, this, &HttpExchange::onDisconnected);
    connect(&m_socket, &QTcpSocket::errorOccurred, this, &HttpExchange::onError);
}

HttpExchange::~HttpExchange()
{
    // Before the members go that the socket's last signals would touch.
    abort();
}

void HttpExchange::start(const QByteArray& host, qint32 port)
{
    QTimer::singleShot(0, this, [this, host, port] { connectTo(host, port); });
}

void HttpExchange::connectTo(const QByteArray& host, qint32 port)
{
    if (m_ended)
        return;
    if (port < 1 || port > 65535) {
        m_ended = true;
        emit failed(
            { QAbstractSocket::SocketAddressNotAvailableError, QStringLiteral("Port %1 is out of range").arg(port) });
        return;
    }
    m_socket.connectToHost(allgemein::fromSystem(host), static_cast<quint16>(port));
}

void HttpExchange::watchTries()
{
    for (QSocketNotifier* const notifier : m_socket.findChildren<QSocketNotifier*>())
        notifier->installEventFilter(this);
}

bool HttpExchange::eventFilter(QObject* watched, QEvent* event)
{
    // For each address of a host the socket makes itself an engine, which has its notifiers a moment later.
    if (watched == &m_socket && event->type() == QEvent::ChildAdded)
        QMetaObject::invokeMethod(this, &HttpExchange::watchTries, Qt::QueuedConnection);
    if (event->type() != QEvent::SockAct || m_socket.state() != QAbstractSocket::ConnectingState)
        return false;
    // A connection that is reset before it is seen to be made is made again by the socket library, for a minute
    // if the server does it each time.
    if (++m_tries == mostTries)
        QTimer::singleShot(0, this, &HttpExchange::endAsClosed);
    return m_tries >= mostTries;
}

void HttpExchange::endAsClosed()
{
    if (m_ended)
        return;
    abort();
    emit closed();
}

void HttpExchange::send(const QByteArray& request)
{
    m_socket.write(request);
}

void HttpExchange::abort()
{
    m_ended = true;
    m_socket.abort();
}

void HttpExchange::readAvailable()
{
    // The socket makes room for all that it is asked for, so it is asked for what is there.
    while (!m_ended && m_socket.bytesAvailable() > 0)
        handOn(m_answer.take(m_socket.read(qMin(readAhead, m_socket.bytesAvailable()))));
}

void HttpExchange::handOn(const AnswerSplitter::Parts& parts)
{
    if (parts.headerIsTooLong) {
        endAsClosed();
        return;
    }
    if (!parts.header.isEmpty())
        emit headerArrived(parts.header);
    if (!m_ended && !parts.body.isEmpty())
        emit bodyArrived(parts.body);
}

void HttpExchange::onDisconnected()
{
    readAvailable();
    if (!std::exchange(m_ended, true))
        emit closed();
}

void HttpExchange::onError(QAbstractSocket::SocketError error)
{
    // What has arrived goes first: after a failed write the socket throws its buffer away.
    readAvailable();
    // The remote side closing is no failure; `disconnected` follows and tells it.
    if (error != QAbstractSocket::RemoteHostClosedError && !std::exchange(m_ended, true))
        emit failed({ error, m_socket.errorString() });
}
