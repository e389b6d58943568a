// SPDX-License-Identifier: GPL-3.0-or-later
// Does a search slow down as it grows? The start page has a million links whose fetches all fail at once, so that only
// the search's own work remains: recording, walking to the next item, reporting its states. The program prints the time
// for each tenth of the items as a ratio to the first.
#include "crawl/SearchRun.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"
#include "support/ScriptedServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {

constexpr int items = 1'000'000;
constexpr int parts = 10;

QByteArray pageOfLinks()
{
    QByteArray page;
    for (int number = 0; number < items; ++number)
        page += "<a href='http://127.0.0.1:0/dir" + QByteArray::number(number % 997) + "/" + QByteArray::number(number)
            + "'>";
    return page;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    ScriptedServer server;
    server.page("/", pageOfLinks());
    FundListe list;
    PlainExtras extras;
    const WebRules web;
    Connections connections(web);
    SearchRun run(list, extras, connections);
    SearchOptions options;
    options.startUrl = server.origin() + '/';

    QElapsedTimer timer;
    int failed = 0;
    double first = 0;
    QObject::connect(&run, &SearchRun::reported, &application, [&](FundKnoten*, const FetchReport& report) {
        if (report.event != FetchEvent::NetError)
            return;
        if (failed++ == 0)
            timer.start();
        if (failed % (items / parts) == 0) {
            const double milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
            if (first == 0)
                first = milliseconds;
            std::printf("%8d items: %7.0f ms, ratio %.2f\n", failed, milliseconds, milliseconds / first);
            timer.start();
        }
    });
    QObject::connect(&run, &SearchRun::finished, &application, &QCoreApplication::quit, Qt::QueuedConnection);
    run.starteSuche(options);
    return QCoreApplication::exec();
}
