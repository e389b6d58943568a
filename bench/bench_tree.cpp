// SPDX-License-Identifier: GPL-3.0-or-later
// How long does the tree of hosts and directories take for each URL that is added, and for each that is looked up?
#include "Shapes.h"
#include "results/HostArena.h"

#include <benchmark/benchmark.h>

namespace {

QByteArrayList urls(qint64 items)
{
    return shapes::urlsFrom(0, items);
}

/// In the order of a search: URLs that follow each other are mostly in the same directory.
void add(benchmark::State& state)
{
    const QByteArrayList added = urls(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        HostArena arena;
        for (const QByteArray& url : added)
            arena.add(url);
        state.counters["nodes"] = arena.count();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * added.size());
}

/// In an order that jumps all over the tree.
void find(benchmark::State& state)
{
    constexpr qint64 stride = 7919;
    const QByteArrayList added = urls(state.range(0));
    HostArena arena;
    for (const QByteArray& url : added)
        arena.add(url);
    qint64 next = 0;
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(arena.find(added[next], 6));
        next = (next + stride) % added.size();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}

} // namespace

BENCHMARK(add)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->MinTime(0.1);
BENCHMARK(find)->Apply(shapes::sizes)->MinTime(0.1);

BENCHMARK_MAIN();
