// SPDX-License-Identifier: GPL-3.0-or-later
// What does it cost to record a URL as the ten thousandth item, and what as the millionth? And how much memory does an
// item take beside its URL's own bytes? Fetches cost the same whatever the size; what could grow is told here.
#include "CpuTimer.h"
#include "Shapes.h"
#include "crawl/SearchRun.h"
#include "support/PlainExtras.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

/// The time is taken of the last tenth of the items.
constexpr qint64 timedPart = 10;

/// The references of the page that is read when the list holds so many items, the last ones new.
using Page = QByteArrayList (*)(qint64 items);

/// As a search meets them: the navigation and the neighbours are known.
QByteArrayList sitePage(qint64 items)
{
    return shapes::linksOf(shapes::pageReadAt(items));
}

QByteArrayList newPage(qint64 items)
{
    return shapes::urlsFrom(items, shapes::childrenOfPage);
}

/// As hard as it gets: as many known URLs as new ones, from where nothing has looked for longest.
QByteArrayList coldPage(qint64 items)
{
    return shapes::urlsFrom(items / 2, shapes::childrenOfPage) + newPage(items);
}

void recordPage(SearchRun& run, const QByteArray& page, const QByteArrayList& references)
{
    for (const QByteArray& url : references)
        run.fuegeFundHinzu(url, 1, page, ReferenzTyp::Anchor);
}

void fill(SearchRun& run, const FundListe& list, qint64 items)
{
    run.fuegeFundHinzu(shapes::urlOf(0), 0, {}, ReferenzTyp::Unbekannt);
    while (list.getAnzahl() < items)
        recordPage(run, shapes::urlOf(shapes::pageReadAt(list.getAnzahl())), newPage(list.getAnzahl()));
}

void record(benchmark::State& state, Page page)
{
    int64_t recorded = 0;
    for ([[maybe_unused]] auto round : state) {
        // A program has just been started when it comes to its ten thousandth item: no memory is left of the round
        // before.
        malloc_trim(0);
        FundListe list;
        PlainExtras extras;
        SearchRun run(list, extras);
        fill(run, list, state.range(0) - state.range(0) / timedPart);
        double seconds = 0;
        while (list.getAnzahl() < state.range(0)) {
            const QByteArray pageUrl = shapes::urlOf(shapes::pageReadAt(list.getAnzahl()));
            const QByteArrayList references = page(list.getAnzahl());
            const CpuTimer timer;
            recordPage(run, pageUrl, references);
            seconds += timer.seconds();
            recorded += references.size();
        }
        state.SetIterationTime(seconds);
    }
    state.SetItemsProcessed(recorded);
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
        fill(run, list, state.range(0));
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

BENCHMARK_CAPTURE(record, site, sitePage)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK_CAPTURE(record, only_new, newPage)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK_CAPTURE(record, cold, coldPage)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK(memory)->Apply(shapes::sizes)->Iterations(1);

BENCHMARK_MAIN();
