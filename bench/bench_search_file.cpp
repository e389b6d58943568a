// SPDX-License-Identifier: GPL-3.0-or-later
// What does it cost to load a search file, and to save one until all of it is on the disk? The files stand in the
// folder in which the program is started.
#include "Shapes.h"
#include "results/SearchFileReader.h"
#include "results/SearchFileWriter.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace {

/// A search of so many items, and a place for its file.
struct Search {
    explicit Search(qint64 items)
    {
        options.startUrl = shapes::urlOf(0);
        shapes::fill(list, items);
    }
    bool save() const { return !SearchFile::save(fileName, options, RequestPrefs(), list); }

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
        if (SearchFile::load(search.fileName, *loaded).error != SearchFile::LoadError::None)
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
