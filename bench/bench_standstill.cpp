// SPDX-License-Identifier: GPL-3.0-or-later
// How long does the event loop stand still while a page of 50 MB is loaded and analysed? For each shape of page a timer
// that is always due measures the longest time between two of its events. The loop without a search is measured in the
// same run, to show how much of the time is due to the machine.
#include "Heartbeat.h"
#include "Shapes.h"
#include "crawl/SearchRun.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <cstdio>

namespace {

constexpr qsizetype pageSize = 50'000'000;

struct Shape {
    const char* name;
    QByteArray (*page)();
    bool allSrc;
};

const Shape pages[] = {
    { "news", [] { return shapes::htmlPage(pageSize); }, false },
    { "brackets, one src at the end", []() -> QByteArray { return QByteArray(pageSize, '<') + " src"; }, true },
    { "brackets, one value at the end", []() -> QByteArray { return QByteArray(pageSize, '<') + " srcset src >"; },
        true },
    { "blanks", []() -> QByteArray { return QByteArray(pageSize, ' ') + "<a href='x'>"; }, false },
    { "text without a tag", []() -> QByteArray { return QByteArray(pageSize, 'x'); }, true },
};

/// Serves one page to every connection. It is a process of its own, so that its sending does not count.
int serve(const Shape& shape)
{
    QTcpServer server;
    const QByteArray answer = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n" + shape.page();
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* const socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [socket, &answer] {
            const QByteArray request = socket->readAll();
            socket->write(request.startsWith("GET / ") ? answer : QByteArray("HTTP/1.1 404 No\r\n\r\n"));
            socket->disconnectFromHost();
        });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
    if (!server.listen(QHostAddress::LocalHost))
        return 1;
    std::printf("%d\n", int { server.serverPort() });
    std::fflush(stdout);
    return QCoreApplication::exec();
}

double idleStandstill()
{
    const Heartbeat heartbeat;
    QTimer::singleShot(1000, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    return heartbeat.longestMilliseconds();
}

void measure(const Shape& shape, int index)
{
    QProcess server;
    server.start(QCoreApplication::applicationFilePath(), { QString::number(index) });
    QSignalSpy ready(&server, &QProcess::readyReadStandardOutput);
    if (!ready.wait(60'000))
        return;
    FundListe list;
    PlainExtras extras;
    const WebRules web;
    Connections connections(web);
    SearchRun run(list, extras, connections);
    SearchOptions options;
    options.startUrl = "http://127.0.0.1:" + server.readAllStandardOutput().trimmed() + '/';
    options.tiefe = 1;
    options.analysis.allSrc = shape.allSrc;
    // Only the page itself is measured, not the fetches of its references.
    bool read = false;
    QObject::connect(&run, &SearchRun::reported, qApp, [&](FundKnoten* node, const FetchReport&) {
        if (node != list.getStart() && !std::exchange(read, true))
            QCoreApplication::quit();
    });
    QObject::connect(&run, &SearchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    const Heartbeat heartbeat;
    QElapsedTimer timer;
    timer.start();
    run.starteSuche(options);
    QCoreApplication::exec();
    std::printf("%-32s longest standstill %6.1f ms, %7lld ms in all, %d items\n", shape.name,
        heartbeat.longestMilliseconds(), static_cast<long long>(timer.elapsed()), list.getAnzahl());
    std::fflush(stdout);
    server.kill();
    server.waitForFinished();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc > 1)
        return serve(pages[QByteArray(argv[1]).toInt()]);
    std::printf("%-32s longest standstill %6.1f ms\n", "no search", idleStandstill());
    int index = 0;
    for (const Shape& shape : pages)
        measure(shape, index++);
    return 0;
}
