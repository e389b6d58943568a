// SPDX-License-Identifier: GPL-3.0-or-later
// How long does each operation on a URL take? A search does most of them at least once for each reference of each page.
#include "Shapes.h"
#include "http/url.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 urlCount = 1000;
constexpr qint32 directoryLevel = 6;

template <typename Operation> void eachUrl(benchmark::State& state, Operation operation)
{
    const QByteArrayList urls = shapes::urlsFrom(0, urlCount);
    for ([[maybe_unused]] auto round : state)
        for (const QByteArray& url : urls)
            benchmark::DoNotOptimize(operation(url));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * urlCount);
}

void resolve(benchmark::State& state, const QByteArray& reference)
{
    eachUrl(state, [&](const QByteArray& page) { return url::resolveReference(page, reference); });
}

} // namespace

BENCHMARK_CAPTURE(eachUrl, normalised, [](const QByteArray& url) { return url::normalised(url); });
BENCHMARK_CAPTURE(eachUrl, host, [](const QByteArray& url) { return url::hostOf(url); });
BENCHMARK_CAPTURE(eachUrl, path, [](const QByteArray& url) { return url::pathOf(url); });
BENCHMARK_CAPTURE(eachUrl, level_count, [](const QByteArray& url) { return url::levelCount(url); });
BENCHMARK_CAPTURE(eachUrl, sub_url, [](const QByteArray& url) { return url::subUrl(url, directoryLevel); });
BENCHMARK_CAPTURE(eachUrl, components, [](const QByteArray& url) { return url::components(url, directoryLevel); });
BENCHMARK_CAPTURE(resolve, file_name, "page12.html");
BENCHMARK_CAPTURE(resolve, parent_directory, "../issue7/page12.html");
BENCHMARK_CAPTURE(resolve, absolute_path, "/section1/issue7/page12.html");
BENCHMARK_CAPTURE(resolve, whole_url, "http://www.example.org/section1/page12.html");

BENCHMARK_MAIN();
