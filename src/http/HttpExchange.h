// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/AnswerSplitter.h"
#include "http/WebRules.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <optional>

/// Why an exchange failed.
struct ExchangeFailure {
    enum Kind {
        System, ///< `number` is that of the socket error, `description` the system's words for it
        BadPort, ///< `number` is the port, which is outside 1 to 65535
        Silence, ///< `number` is the time limit in seconds, in which no byte came
    };
    Kind kind = System;
    int number = 0;
    QString description = {};
};

/// One request and its answer over a connection of their own: connects, sends, splits the answer into header and
/// body, and ends exactly once, with `closed` or `failed`, unless it is aborted. No signal comes from within `start`,
/// so a chain of exchanges that fail at once never nests.
///
/// A server that stays silent longer than the rules allow ends the exchange: with `failed` before a whole header has
/// come, with `closed` behind it, since all that came is of use then.
class HttpExchange final : public QObject {
    Q_OBJECT

public:
    /// The socket reads at most this many bytes ahead; a body is handed on in pieces no longer than that.
    static constexpr qint64 readAhead = 256 * 1024;

    /// A body that has all its announced bytes, and gets no more for so long, has ended: some servers leave the
    /// connection open although they were asked to close it.
    static constexpr std::chrono::seconds graceAfterBody { 2 };

    /// `rules` must outlive the exchange.
    HttpExchange(const WebRules& rules, QObject* parent);
    ~HttpExchange() override;

    /// Begins connecting once control is back in the event loop. A port outside 1 to 65535 fails.
    void start(const QByteArray& host, qint32 port);
    /// Sends the request; called when `connected` was emitted.
    void send(const QByteArray& request);
    /// Ends the exchange now, without a signal. May be called from a slot of any signal.
    void abort();

signals:
    void connected();
    /// The header, up to and including the line end before the blank line.
    void headerArrived(const QByteArray& header);
    /// The next piece of the body, as it arrived.
    void bodyArrived(const QByteArray& piece);
    /// The other side closed or reset the connection, its header is too long, or its body has ended. All that it sent
    /// behind a whole header was handed on before.
    void closed();
    void failed(const ExchangeFailure& failure);

protected:
    /// Counts the notifications that the socket gets while it connects.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How many notifications the socket may get before it is connected. An attempt to connect needs one.
    static constexpr int mostTries = 16;

    void connectTo(const QByteArray& host, qint32 port);
    void watchTries();
    void endAsClosed();
    void fail(const ExchangeFailure& failure);
    /// Begins anew to measure how long the server is silent.
    void listen();
    void onSilence();
    void readAvailable();
    void handOn(const AnswerSplitter::Parts& parts);
    void onDisconnected();
    void onError(QAbstractSocket::SocketError error);

    const WebRules& m_rules;
    QTcpSocket m_socket;
    AnswerSplitter m_answer;
    std::optional<qint64> m_announced; ///< the body's length, -1 when unknown; nothing before the header
    qint64 m_received = 0; ///< bytes of the body
    QTimer m_silence;
    int m_tries = 0;
    bool m_ended = false;
};
