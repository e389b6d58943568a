// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedServer.h"

#include "support/Wine.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>

#include <memory>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace {

QByteArray pathOf(const QByteArray& request)
{
    const qsizetype start = request.indexOf(' ') + 1;
    return request.mid(start, request.indexOf(" HTTP/1.1\r\n", start) - start);
}

/// Closes with a reset.
void reset(QTcpSocket* socket)
{
    using Handle = decltype(::socket(0, 0, 0));
    const linger dropTheRest { 1, 0 };
    setsockopt(static_cast<Handle>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER,
        reinterpret_cast<const char*>(&dropTheRest), sizeof dropTheRest);
    socket->abort();
}

void end(QTcpSocket* socket, const Answer& answer)
{
    switch (answer.afterwards) {
    case Afterwards::Close:
        socket->disconnectFromHost();
        break;
    case Afterwards::Stall:
    case Afterwards::Keep:
        break;
    case Afterwards::Reset:
        reset(socket);
        break;
    case Afterwards::Repeat:
        socket->write(answer.pieces.constLast());
        break;
    }
}

/// Writes the pieces one after the other, each when the piece before it was sent.
void writeInTurn(QTcpSocket* socket, const Answer& answer)
{
    const auto next = std::make_shared<qsizetype>(0);
    auto* const turn = new QObject(socket);
    const auto writeNext = [socket, answer, next, turn] {
        if (socket->bytesToWrite() > 0)
            return;
        if (*next < answer.pieces.size()) {
            socket->write(answer.pieces[(*next)++]);
            return;
        }
        if (answer.afterwards != Afterwards::Repeat)
            turn->deleteLater();
        end(socket, answer);
    };
    QObject::connect(socket, &QTcpSocket::bytesWritten, turn, writeNext);
    writeNext();
}

} // namespace

ScriptedServer::ScriptedServer(const char* certificate)
    : ScriptedServer()
{
    const QString file = QStringLiteral(TARNWICK_CERTIFICATES "/") + QLatin1String(certificate);
    QFile key(file + QLatin1String(".key"));
    if (!key.open(QIODevice::ReadOnly))
        qFatal("The key of the scripted server cannot be read.");
    m_tls = QSslConfiguration::defaultConfiguration();
    m_tls.setLocalCertificateChain(QSslCertificate::fromPath(file + QLatin1String(".pem")));
    m_tls.setPrivateKey(QSslKey(&key, QSsl::Rsa));
}

const char* ScriptedServer::withoutTls()
{
    return isOnWine() ? "On Wine the scripted server cannot speak TLS." : "";
}

void ScriptedServer::incomingConnection(qintptr descriptor)
{
    ++m_accepted;
    if (m_tls.isNull()) {
        QTcpServer::incomingConnection(descriptor);
        return;
    }
    auto* const socket = new QSslSocket(this);
    socket->setSocketDescriptor(descriptor);
    socket->setSslConfiguration(m_tls);
    socket->startServerEncryption();
    addPendingConnection(socket);
}

ScriptedServer::ScriptedServer()
{
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* const socket = nextPendingConnection())
            serve(socket);
    });
    if (!listen(QHostAddress::LocalHost))
        qFatal("The scripted server cannot listen.");
}

QByteArray ScriptedServer::origin() const
{
    return (m_tls.isNull() ? "http://127.0.0.1:" : "https://127.0.0.1:") + QByteArray::number(serverPort());
}

void ScriptedServer::script(const QByteArray& path, const Answer& answer)
{
    m_script.insert(path, answer);
}

void ScriptedServer::page(const QByteArray& path, const QByteArray& body)
{
    script(path, { { okHeader("text/html") + body } });
}

void ScriptedServer::relocation(const QByteArray& path, const QByteArray& location, int status)
{
    script(path, { { "HTTP/1.1 " + QByteArray::number(status) + " Moved\r\nLocation: " + location + "\r\n\r\n" } });
}

QByteArrayList ScriptedServer::paths() const
{
    QByteArrayList paths;
    for (const QByteArray& request : m_requests)
        paths += pathOf(request);
    return paths;
}

void ScriptedServer::release(const QByteArray& path, const QByteArray& bytes)
{
    QTcpSocket* const socket = m_stalled.take(path);
    Q_ASSERT(socket);
    socket->write(bytes);
    socket->disconnectFromHost();
}

void ScriptedServer::serve(QTcpSocket* socket)
{
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    if (m_unasked) {
        writeInTurn(socket, *m_unasked);
        return;
    }
    const auto request = std::make_shared<QByteArray>();
    connect(socket, &QTcpSocket::readyRead, this, [this, socket, request] {
        *request += socket->readAll();
        if (request->endsWith("\r\n\r\n")) {
            m_requests += *request;
            request->clear();
            reply(socket, pathOf(m_requests.constLast()));
        }
    });
}

void ScriptedServer::reply(QTcpSocket* socket, const QByteArray& path)
{
    static const Answer notFound { { "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n" } };
    const Answer answer = m_script.value(path, notFound);
    if (answer.afterwards == Afterwards::Stall)
        m_stalled.insert(path, socket);
    writeInTurn(socket, answer);
}

QByteArray okHeader(const QByteArray& contentType)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: " + contentType + "\r\n\r\n";
}

QByteArrayList dripped(const QByteArray& bytes)
{
    QByteArrayList pieces;
    for (const char each : bytes)
        pieces += QByteArray(1, each);
    return pieces;
}
