// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>

#include <optional>

/// What the server does with a connection after its answer.
enum class Afterwards {
    Close,
    Stall, ///< neither sends nor closes
    Reset, ///< a reset instead of an orderly close
    Keep, ///< waits for the next request
    Repeat, ///< sends the last piece again and again, until the other side closes
};

/// One scripted answer: the pieces are written in turn, each when the piece before it was sent.
struct Answer {
    QByteArrayList pieces;
    Afterwards afterwards = Afterwards::Close;
};

/// An HTTP server on a free port of the loopback address that answers each path by a script. A path without a script
/// is answered with status 404 and no body.
class ScriptedServer final : public QTcpServer {
    Q_OBJECT

public:
    ScriptedServer();
    /// Speaks TLS with this certificate: the name of a pair of files in tests/certificates.
    explicit ScriptedServer(const char* certificate);
    /// Why a test that needs TLS cannot run here; empty if it can. On Wine this server ends each secure connection in
    /// the handshake.
    [[nodiscard]] static const char* withoutTls();

    /// "http://127.0.0.1:" port, or "https://...", without a slash at the end.
    [[nodiscard]] QByteArray origin() const;

    void script(const QByteArray& path, const Answer& answer);
    /// From now on every connection gets this answer as soon as it is made, before any request.
    void answerUnasked(const Answer& answer) { m_unasked = answer; }
    /// Status 200 and "text/html", closed behind the body.
    void page(const QByteArray& path, const QByteArray& body);
    /// A relocation with this status.
    void relocation(const QByteArray& path, const QByteArray& location, int status = 302);

    /// Every request's text, in the order of arrival.
    [[nodiscard]] const QByteArrayList& requests() const { return m_requests; }
    /// The paths of the requests.
    [[nodiscard]] QByteArrayList paths() const;
    /// Sends `bytes` on a stalled connection to this path, and closes it.
    void release(const QByteArray& path, const QByteArray& bytes);
    /// How many connections were ever made.
    [[nodiscard]] int acceptedCount() const { return m_accepted; }
    /// How many connections are open.
    [[nodiscard]] qsizetype connectionCount() const { return findChildren<QTcpSocket*>().size(); }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void serve(QTcpSocket* socket);
    void reply(QTcpSocket* socket, const QByteArray& path);

    QSslConfiguration m_tls; ///< null for a server that does not speak TLS
    int m_accepted = 0;
    QHash<QByteArray, Answer> m_script;
    std::optional<Answer> m_unasked;
    QByteArrayList m_requests;
    QHash<QByteArray, QTcpSocket*> m_stalled;
};

/// A header with status 200, this Content-Type and the blank line behind it.
[[nodiscard]] QByteArray okHeader(const QByteArray& contentType);

/// The bytes one by one.
[[nodiscard]] QByteArrayList dripped(const QByteArray& bytes);
