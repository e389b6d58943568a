// SPDX-License-Identifier: GPL-3.0-or-later
// How fast is a page analysed, and is the time linear for pages that are built to be slow? For each shape of page,
// larger pages must reach as many bytes per second as small ones.
#include "Shapes.h"
#include "pages/HtmlAnalysis.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype mebibyte = 1024 * 1024;
constexpr AnalysisSwitches pageKinds { true, true, false, true, true, true };
constexpr AnalysisSwitches anySrc { true, true, true, true, true, true };

QByteArray brackets(qsizetype size)
{
    return QByteArray(size, '<') + " src";
}

QByteArray openTags(qsizetype size)
{
    return QByteArray("<a ").repeated(size / 3) + " href='x";
}

void analyse(benchmark::State& state, QByteArray (*page)(qsizetype), const AnalysisSwitches& switches)
{
    const QByteArray body = page(state.range(0) * mebibyte);
    qint64 references = 0;
    for ([[maybe_unused]] auto round : state) {
        HtmlAnalysis analysis(BodyBuffer(body), "http://h:80/d/p.html", switches);
        for (auto step = analysis.next(); step != HtmlAnalysis::Step::End; step = analysis.next())
            references += step == HtmlAnalysis::Step::Reference ? 1 : 0;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * body.size());
    state.counters["references"] =
        benchmark::Counter(static_cast<double>(references), benchmark::Counter::kAvgIterations);
}

} // namespace

BENCHMARK_CAPTURE(analyse, news, shapes::htmlPage, pageKinds)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(analyse, news_any_src, shapes::htmlPage, anySrc)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(analyse, brackets, brackets, anySrc)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(analyse, open_tags, openTags, pageKinds)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
