// SPDX-License-Identifier: GPL-3.0-or-later
// What does it cost to record a URL when the list holds a thousand items, and when it holds a million? And how much
// memory does an item take beside its URL's own bytes?
#include "crawl/SearchRun.h"
#include "support/PlainExtras.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

/// The references of one page.
constexpr int batch = 500;

QByteArray urlOf(qint64 number)
{
    return "http://www.example.org:80/archive/" + QByteArray::number(number % 997) + "/page"
        + QByteArray::number(number) + ".html";
}

QByteArrayList urlsFrom(qint64 first, qint64 count)
{
    QByteArrayList urls;
    for (qint64 number = first; number < first + count; ++number)
        urls += urlOf(number);
    return urls;
}

void recordPage(SearchRun& run, const QByteArray& page, const QByteArrayList& references)
{
    for (const QByteArray& url : references)
        run.fuegeFundHinzu(url, 1, page, ReferenzTyp::Anchor);
}

void fill(SearchRun& run, qint64 items)
{
    for (qint64 number = 0; number < items; number += batch)
        recordPage(run, urlOf(number), urlsFrom(number, batch));
}

/// Records new URLs and as many known ones, as pages of a site do.
void record(benchmark::State& state)
{
    FundListe list;
    PlainExtras extras;
    SearchRun run(list, extras);
    qint64 next = state.range(0);
    fill(run, next);
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        const QByteArray page = urlOf(next);
        const QByteArrayList references = urlsFrom(next, batch) + urlsFrom(next / 2, batch);
        state.ResumeTiming();
        recordPage(run, page, references);
        next += batch;
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * 2 * batch);
}

size_t allocated()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void memory(benchmark::State& state)
{
    for ([[maybe_unused]] auto round : state) {
        FundListe list;
        PlainExtras extras;
        SearchRun run(list, extras);
        const size_t before = allocated();
        fill(run, state.range(0));
        qint64 urlBytes = 0;
        for (FundKnoten* knoten = list.getStart(); knoten; knoten = knoten->naechster) {
            urlBytes += knoten->inhalt.adresse.size();
            // What an answer adds.
            knoten->inhalt.mimeTyp = QByteArray("text/html; charset=utf-8 ").chopped(1);
            knoten->inhalt.sprache = QByteArray("en ").chopped(1);
        }
        const double own = static_cast<double>(allocated() - before) - static_cast<double>(urlBytes);
        state.counters["bytes_per_item"] = own / static_cast<double>(state.range(0));
    }
}

} // namespace

BENCHMARK(record)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Iterations(400);
BENCHMARK(memory)->Arg(100'000)->Arg(1'000'000)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
