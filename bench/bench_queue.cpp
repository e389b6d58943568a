// SPDX-License-Identifier: GPL-3.0-or-later
// Does the download list slow down as it grows? The program adds 100,000 entries, lets each of them end at once, and
// prints the time of each tenth as a ratio to the first.
#include "downloads/DownloadQueue.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {

constexpr int entries = 100'000;
constexpr int tenth = entries / 10;

template <typename Step> void measure(const char* what, Step step)
{
    double first = 0;
    std::printf("%-34s", what);
    for (int part = 0; part < 10; ++part) {
        QElapsedTimer timer;
        timer.start();
        for (int entry = part * tenth; entry < (part + 1) * tenth; ++entry)
            step(entry);
        const double elapsed = static_cast<double>(timer.nsecsElapsed());
        first = part == 0 ? elapsed : first;
        std::printf(" %5.2f", elapsed / first);
    }
    std::printf("   (first %.0f ns an entry)\n", first / tenth);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    PlainExtras extras;
    const WebRules web;
    Connections connections(web);
    DownloadQueue queue(extras, connections);
    queue.settings().startImmediately = false;
    // An entry of this protocol ends as soon as it starts, so only the list's own work is measured.
    const auto url = [](int entry) -> QByteArray {
        return "https://www.example.org/pictures/" + QByteArray::number(entry) + ".jpg";
    };
    measure("adding", [&](int entry) { queue.addDL(url(entry), -1, {}); });
    measure("adding what is there", [&](int entry) { queue.addDL(url(entry), -1, {}); });
    measure("queueing and starting one by one", [&](int entry) { queue.queue({ { entry, entry } }); });
    return 0;
}
