// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/HttpExchange.h"

#include "base/allgemein.h"

#include <QNetworkProxy>
#include <QTimer>

#include <utility>

HttpExchange::HttpExchange(QObject* parent)
    : QObject(parent)
{
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(readAhead);
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
    while (!m_ended && m_socket.bytesAvailable() > 0) {
        const QByteArray piece = m_socket.read(readAhead);
        if (m_headerComplete)
            emit bodyArrived(piece);
        else
            takeHeaderBytes(piece);
    }
}

void HttpExchange::takeHeaderBytes(const QByteArray& piece)
{
    constexpr QByteArrayView blankLine = "\r\n\r\n";
    // A blank line may be cut: all but its last byte may stand at the end of what has come.
    constexpr qsizetype cut = blankLine.size() - 1;
    const qsizetype searched = qMax<qsizetype>(0, m_header.size() - cut);
    m_header += piece;
    const qsizetype end = m_header.indexOf(blankLine, searched);
    const qsizetype earliestEnd = end < 0 ? m_header.size() - cut : end;
    if (earliestEnd > headerLimit) {
        abort();
        emit closed();
        return;
    }
    if (end < 0)
        return;
    m_headerComplete = true;
    const QByteArray received = std::exchange(m_header, {});
    emit headerArrived(received.first(end + 2));
    if (!m_ended && received.size() > end + blankLine.size())
        emit bodyArrived(received.sliced(end + blankLine.size()));
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
