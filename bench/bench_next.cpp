// SPDX-License-Identifier: GPL-3.0-or-later
// How long does a search take to find its next item, in lists of different lengths? The search continues a list of
// which half of the items are done. All fetches fail at once, so that only the walk and the changes of state remain.
#include "Shapes.h"
#include "crawl/SearchRun.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

namespace {

/// No item has a port that can be connected to, so no socket is opened.
void fillUnreachable(FundListe& list, qint64 items)
{
    for (qint64 number = 0; number < items; ++number) {
        FundStück item = shapes::itemOf(number, {});
        item.adresse.replace(":80/", ":0/");
        item.zustand = number % 2 == 0 ? FetchState::NotFetched : FetchState::Finished;
        list.add(std::move(item));
    }
}

void next(benchmark::State& state)
{
    FundListe list;
    PlainExtras extras;
    const WebRules web;
    Connections connections(web);
    SearchRun run(list, extras, connections);
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
