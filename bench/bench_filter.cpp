// SPDX-License-Identifier: GPL-3.0-or-later
// How long does the filter take with all five tests on: for one item, and for choosing the rows of a whole list?
#include "Shapes.h"
#include "base/lang.h"
#include "results/window/FoundModel.h"

#include <benchmark/benchmark.h>

#include <QApplication>

namespace {

void test(benchmark::State& state)
{
    FundListe list;
    shapes::fill(list, state.range(0));
    const ResultFilter filter = shapes::fiveTests();
    for ([[maybe_unused]] auto round : state) {
        for (const FundKnoten* node = list.getStart(); node; node = node->naechster())
            benchmark::DoNotOptimize(filter.shows(node->inhalt));
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

/// From a list that shows all rows to the end of the rebuild.
void rebuild(benchmark::State& state)
{
    FundListe list;
    shapes::fill(list, state.range(0));
    ResultFilter filter;
    const LanguageTable language;
    FoundModel model(list, filter, language, nullptr);
    QObject::connect(&model, &FoundModel::rebuilt, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    const auto apply = [&](const ResultFilter& wanted) {
        filter = wanted;
        model.rebuild();
        QCoreApplication::exec();
    };
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        apply({});
        state.ResumeTiming();
        apply(shapes::fiveTests());
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

} // namespace

BENCHMARK(test)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->MinTime(0.1);
BENCHMARK(rebuild)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->MinTime(0.1);

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
