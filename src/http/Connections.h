// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/Origin.h"

#include <QNetworkProxy>
#include <QObject>
#include <QSslConfiguration>
#include <QSslError>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

struct WebRules;

/// Keeps the connections that exchanges leave usable until the next exchange with the same origin, and knows how secure
/// ones are made. One object serves all searches and downloads of the program.
class Connections final : public QObject {
    Q_OBJECT

public:
    /// A kept connection that nobody uses for so long is closed. Servers close theirs after 5 s and more.
    static constexpr std::chrono::seconds idleLimit { 10 };
    /// At most this many kept connections wait for use; the oldest is closed first.
    static constexpr size_t mostIdle = 32;

    /// `rules` must outlive this object.
    explicit Connections(const WebRules& rules);
    ~Connections() override;

    [[nodiscard]] const WebRules& rules() const { return m_rules; }

    /// A kept connection to `origin`; nullptr if there is none.
    [[nodiscard]] std::unique_ptr<QTcpSocket> takeIdle(const Origin& origin);
    /// Keeps a connection that is open, between two answers, and whose signals nobody listens to.
    void keep(const Origin& origin, std::unique_ptr<QTcpSocket> socket);
    /// Closes the kept connections and forgets what was agreed with servers: call it when a rule for certificates or
    /// proxies changes.
    void reset();

    /// How a secure connection to `origin` is made: with the certificates that the rules name, and the session of an
    /// earlier connection.
    [[nodiscard]] QSslConfiguration tlsFor(const Origin& origin);
    /// Remembers the session of a connection, so that the next one needs half of the work.
    void rememberSession(const Origin& origin, const QSslConfiguration& used);
    /// The proxy on the way to `origin`; of type NoProxy without one.
    [[nodiscard]] QNetworkProxy proxyFor(const Origin& origin) const;

private:
    struct Idle {
        Origin origin;
        std::unique_ptr<QTcpSocket> socket;
        std::chrono::steady_clock::time_point since;
    };

    void drop(const QTcpSocket* socket);
    void closeOld();

    const WebRules& m_rules;
    std::vector<Idle> m_idle; ///< the one that waits longest first
    QTimer m_closing;
    QHash<Origin, QByteArray> m_sessions;
    QSslConfiguration m_tls;
    QString m_certificateFile; ///< the one in `m_tls`
};
