// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/AnswerSplitter.h"
#include "http/HttpExchange.h"
#include "http/WebRules.h"

#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <optional>

/// An exchange over a connection of its own, which the server closes behind the body.
///
/// A server that stays silent longer than the rules allow ends the exchange: with `failed` before a whole header has
/// come, with `closed` behind it, since all that came is of use then.
class PlainExchange final : public HttpExchange {
    Q_OBJECT

public:
    /// A body that has all its announced bytes, and gets no more for so long, has ended: some servers leave the
    /// connection open although they were asked to close it.
    static constexpr std::chrono::seconds graceAfterBody { 2 };

    /// `rules` must outlive the exchange.
    explicit PlainExchange(const WebRules& rules, QObject* parent = nullptr);
    ~PlainExchange() override;

    /// A port outside 1 to 65535 fails.
    void start(const QByteArray& url) override;
    void request(const QByteArray& url, const QByteArray& referer, const RequestExtras& extras) override;
    void skipRest() override { endAsClosed(); }
    void abort() override;

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
