// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/FramedAnswer.h"
#include "http/HttpExchange.h"
#include "http/Origin.h"

#include <QNetworkProxy>
#include <QSslError>
#include <QTcpSocket>
#include <QTimer>

#include <memory>
#include <optional>

class Connections;

/// An exchange over a connection that others have used before and others can use after it, with TLS for https. The
/// answer ends by its length or chunks; after any doubt about that the connection is closed.
class KeptExchange final : public HttpExchange {
    Q_OBJECT

public:
    /// A body that is not wanted is read to its end if it has at most this many bytes more: that is cheaper than a new
    /// connection.
    static constexpr qint64 restLimit = 64 * 1024;

    /// `connections` must outlive the exchange.
    explicit KeptExchange(Connections& connections, QObject* parent = nullptr);
    ~KeptExchange() override;

    /// A URL without a host, or with a port outside 1 to 65535, fails.
    void start(const QByteArray& url) override;
    void request(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras) override;
    void skipRest() override;
    void abort() override;

private:
    void obtain();
    void connectAnew();
    void listenTo(QTcpSocket& socket);
    /// The connection is open: the owner may send, or the request is sent again.
    void onReady();
    void send();
    /// Begins anew to measure how long the server is silent.
    void listen();
    void onSslErrors(const QList<QSslError>& errors);
    void readAvailable();
    /// Hands on what the answer yields.
    void handOn();
    void onDisconnected();
    void onError(QAbstractSocket::SocketError error);
    void onTimeout();
    /// Sends the request over a new connection, if a kept one was closed before the first byte of the answer.
    [[nodiscard]] bool sendAgain();
    void finish(BodyEnd end);
    void fail(const ExchangeFailure& failure);
    void releaseSocket();

    Connections& m_connections;
    Origin m_origin;
    QNetworkProxy m_way; ///< the proxy on the way, asked for once: a system may take long to answer
    std::optional<QNetworkProxy> m_proxy; ///< one that gets the request itself, without a tunnel
    QByteArray m_request;
    std::unique_ptr<QTcpSocket> m_socket;
    bool m_isReused = false;
    std::optional<FramedAnswer> m_answer; ///< nothing until the connection is open
    std::optional<ExchangeFailure> m_certificateFault;
    std::optional<qint64> m_skipped; ///< bytes read since the rest was not wanted any more
    QTimer m_limit; ///< of connecting, then of silence
    bool m_ended = false;
};
