// SPDX-License-Identifier: GPL-3.0-or-later
// How long does it take to record a URL as the ten thousandth item, and as the millionth? How much memory does an item
// take, its URL's own bytes aside? A fetch takes the same time in a list of any size, so it is not measured here.
#include "CpuTimer.h"
#include "Shapes.h"
#include "crawl/SearchRun.h"
#include "http/Connections.h"
#include "http/WebRules.h"
#include "support/PlainExtras.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <vector>

namespace {

/// Only the last tenth of the items is timed.
constexpr qint64 timedPart = 10;

/// Where the memory for the items comes from.
enum class Heap {
    /// The system, page by page: the program was just started, and this is its first search.
    New,
    /// The program itself: an earlier search of the same size has freed it.
    Used,
};

/// The references of the page that a search reads when its list holds that many items. The last ones are new.
using Page = QByteArrayList (*)(qint64 items);

/// As on a real site: the navigation and the neighbours are known.
QByteArrayList sitePage(qint64 items)
{
    return shapes::linksOf(shapes::pageReadAt(items));
}

QByteArrayList newPage(qint64 items)
{
    return shapes::urlsFrom(items, shapes::childrenOfPage);
}

/// The hardest case: half of the URLs are known, and were recorded so long ago that no cache holds them.
QByteArrayList coldPage(qint64 items)
{
    return shapes::urlsFrom(items / 2, shapes::childrenOfPage) + newPage(items);
}

void recordPage(SearchRun& run, const QByteArray& page, const QByteArrayList& references)
{
    for (const QByteArray& url : references)
        run.fuegeFundHinzu(url, 1, page, ReferenceType::Anchor);
}

void fill(SearchRun& run, const FundListe& list, qint64 items)
{
    run.fuegeFundHinzu(shapes::urlOf(0), 0, {}, ReferenceType::Unknown);
    while (list.getAnzahl() < items)
        recordPage(run, shapes::urlOf(shapes::pageReadAt(list.getAnzahl())), newPage(list.getAnzahl()));
}

/// Fills a list and drops it. What is returned was allocated last: it keeps the freed memory from going back to the
/// system.
std::vector<char> useHeap(qint64 items)
{
    FundListe list;
    PlainExtras extras;
    const WebRules web;
    Connections connections(web);
    SearchRun run(list, extras, connections);
    fill(run, list, items);
    constexpr size_t belowOwnMapping = 100'000;
    return std::vector<char>(belowOwnMapping);
}

void record(benchmark::State& state, Page page, Heap heap)
{
    const std::vector<char> kept = heap == Heap::Used ? useHeap(state.range(0)) : std::vector<char>();
    int64_t recorded = 0;
    for ([[maybe_unused]] auto round : state) {
        if (heap == Heap::New)
            malloc_trim(0);
        FundListe list;
        PlainExtras extras;
        const WebRules web;
        Connections connections(web);
        SearchRun run(list, extras, connections);
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
        const WebRules web;
        Connections connections(web);
        SearchRun run(list, extras, connections);
        const size_t before = allocated();
        fill(run, list, state.range(0));
        qint64 urlBytes = 0;
        for (FundKnoten* node = list.getStart(); node; node = node->naechster()) {
            urlBytes += node->inhalt.adresse.size();
            // What an answer adds.
            node->inhalt.mimeTyp = QByteArray("text/html; charset=utf-8 ").chopped(1);
            node->inhalt.sprache = QByteArray("en ").chopped(1);
        }
        const double own = static_cast<double>(allocated() - before) - static_cast<double>(urlBytes);
        state.counters["bytes_per_item"] = own / static_cast<double>(state.range(0));
    }
}

} // namespace

BENCHMARK_CAPTURE(record, site, sitePage, Heap::New)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK_CAPTURE(record, site_used_heap, sitePage, Heap::Used)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK_CAPTURE(record, only_new, newPage, Heap::New)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK_CAPTURE(record, cold, coldPage, Heap::New)->Apply(shapes::sizes)->UseManualTime()->MinTime(0.1);
BENCHMARK(memory)->Apply(shapes::sizes)->Iterations(1);

BENCHMARK_MAIN();
