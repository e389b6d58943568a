// SPDX-License-Identifier: GPL-3.0-or-later
// The least that a search of some URLs could cost: reads the URLs from standard input, one a line and all of one
// server, fetches them over two sockets with a new connection for each request, and throws the bytes away. Prints the
// number of bytes received.
#include <QCoreApplication>
#include <QTcpSocket>
#include <QUrl>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace {

constexpr int sockets = 2;

class Loop {
public:
    Loop()
    {
        for (auto& socket : m_sockets) {
            socket = std::make_unique<QTcpSocket>();
            QTcpSocket* const own = socket.get();
            QObject::connect(own, &QTcpSocket::connected, own, [this, own] { own->write(m_requests[own]); });
            QObject::connect(
                own, &QTcpSocket::readyRead, own, [this, own] { m_bytes += own->skip(own->bytesAvailable()); });
            QObject::connect(
                own, &QTcpSocket::disconnected, own, [this, own] { next(own); }, Qt::QueuedConnection);
            next(own);
        }
    }
    [[nodiscard]] qint64 bytes() const { return m_bytes; }

private:
    void next(QTcpSocket* socket)
    {
        std::string line;
        if (!std::getline(std::cin, line)) {
            if (++m_idle == sockets)
                QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
            return;
        }
        const QUrl url(QString::fromStdString(line));
        const QByteArray host = url.host().toLatin1() + ':' + QByteArray::number(url.port());
        m_requests[socket] = "GET " + url.path(QUrl::FullyEncoded).toLatin1() + " HTTP/1.1\r\nHost: " + host
            + "\r\nConnection: close\r\n\r\n";
        socket->connectToHost(url.host(), static_cast<quint16>(url.port()));
    }

    std::unique_ptr<QTcpSocket> m_sockets[sockets];
    QHash<QTcpSocket*, QByteArray> m_requests;
    qint64 m_bytes = 0;
    int m_idle = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    std::ios::sync_with_stdio(false);
    const Loop loop;
    QCoreApplication::exec();
    std::printf("%lld\n", static_cast<long long>(loop.bytes()));
    return 0;
}
