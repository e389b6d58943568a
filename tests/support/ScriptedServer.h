// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>

#include <optional>

/// What the server does with a connection after its answer.
enum class Afterwards {
    Close,
    Stall, ///< neither sends nor closes
    Reset, ///< a reset instead of an orderly close
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

    /// "http://127.0.0.1:" port, without a slash at the end.
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
    /// How many connections are open.
    [[nodiscard]] qsizetype connectionCount() const { return findChildren<QTcpSocket*>().size(); }

private:
    void serve(QTcpSocket* socket);
    void reply(QTcpSocket* socket, const QByteArray& path);

    QHash<QByteArray, Answer> m_script;
    std::optional<Answer> m_unasked;
    QByteArrayList m_requests;
    QHash<QByteArray, QTcpSocket*> m_stalled;
};

/// A header with status 200, this Content-Type and the blank line behind it.
[[nodiscard]] QByteArray okHeader(const QByteArray& contentType);

/// The bytes one by one.
[[nodiscard]] QByteArrayList dripped(const QByteArray& bytes);
