// SPDX-License-Identifier: GPL-3.0-or-later
// How long does loading a search file take, and saving one until all of it is on the disk? The program writes its files
// to the current folder.
#include "Shapes.h"
#include "results/SearchFileReader.h"
#include "results/SearchFileWriter.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace {

/// A search with a given number of items, and a name for its file.
struct Search {
    explicit Search(qint64 items)
    {
        options.startUrl = shapes::urlOf(0);
        shapes::fill(list, items);
    }
    bool save() const { return !searchFile::save(fileName, options, RequestPrefs(), list); }

    SearchOptions options;
    FundListe list;
    QTemporaryDir folder { QDir::current().filePath(QStringLiteral("bench-XXXXXX")) };
    QString fileName = folder.filePath(QStringLiteral("search.twk"));
};

void save(benchmark::State& state)
{
    const Search search(state.range(0));
    for ([[maybe_unused]] auto round : state)
        if (!search.save())
            state.SkipWithError("cannot be saved");
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

void load(benchmark::State& state)
{
    const Search search(state.range(0));
    if (!search.save())
        state.SkipWithError("cannot be saved");
    for ([[maybe_unused]] auto round : state) {
        auto loaded = std::make_unique<StoredSearch>();
        if (searchFile::load(search.fileName, *loaded).error != searchFile::LoadError::None)
            state.SkipWithError("cannot be loaded");
        state.PauseTiming();
        loaded.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
}

} // namespace

BENCHMARK(save)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(0.1);
BENCHMARK(load)->Apply(shapes::sizes)->Unit(benchmark::kMillisecond)->MinTime(0.1);

BENCHMARK_MAIN();
