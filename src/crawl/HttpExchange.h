// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/AnswerSplitter.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>

/// A socket error for people: the error's number, and its description as the system words it.
struct SocketFailure {
    int number = 0;
    QString description;
};

/// One request and its answer over a connection of their own: connects, sends, splits the answer into header and
/// body, and ends exactly once, with `closed` or `failed`, unless it is aborted. No signal comes from within `start`,
/// so a chain of exchanges that fail at once never nests.
class HttpExchange final : public QObject {
    Q_OBJECT

public:
    /// The socket reads at most this many bytes ahead; a body is handed on in pieces no longer than that.
    static constexpr qint64 readAhead = 256 * 1024;

    explicit HttpExchange(QObject* parent);
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
    /// The other side closed or reset the connection, or its header is too long. All that it sent behind a whole header
    /// was handed on before.
    void closed();
    void failed(const SocketFailure& failure);

protected:
    /// Counts how often the socket is told of while it connects.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// How often a socket may be told of before it is connected. Once for each try is enough.
    static constexpr int mostTries = 16;

    void connectTo(const QByteArray& host, qint32 port);
    void watchTries();
    void endAsClosed();
    void readAvailable();
    void handOn(const AnswerSplitter::Parts& parts);
    void onDisconnected();
    void onError(QAbstractSocket::SocketError error);

    QTcpSocket m_socket;
    AnswerSplitter m_answer;
    int m_tries = 0;
    bool m_ended = false;
};
