// SPDX-License-Identifier: GPL-3.0-or-later
// What does it cost to come to the next item of a search, however many there are? A list is taken up by a search whose
// fetches all fail at once, so that the walk and the change of state remain; half of its items are done already.
#include "Shapes.h"
#include "crawl/SearchRun.h"
#include "support/PlainExtras.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

namespace {

/// No item's port can be connected to, so that no socket is opened.
void fillUnreachable(FundListe& list, qint64 items)
{
    for (qint64 number = 0; number < items; ++number) {
        FundStück item = shapes::itemOf(number, {});
        item.adresse.replace(":80/", ":0/");
        item.zustand = number % 2 == 0 ? Zustand::NichtGeholt : Zustand::Fertig;
        list.add(std::move(item));
    }
}

void next(benchmark::State& state)
{
    FundListe list;
    PlainExtras extras;
    SearchRun run(list, extras);
    QObject::connect(&run, &SearchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        FundListe items;
        fillUnreachable(items, state.range(0));
        run.openSearch(items);
        items.clear();
        state.ResumeTiming();
        run.continueSearch({});
        QCoreApplication::exec();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0) / 2);
}

} // namespace

BENCHMARK(next)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->MinTime(0.1);

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
