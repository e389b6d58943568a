// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "crawl/FundListe.h"
#include "results/ResultFilter.h"

#include <QByteArrayList>

#include <benchmark/benchmark.h>

/// The site that the benchmarks work on. Its pages form a tree. They are numbered from 0, in the order in which a
/// search finds them. A page refers to the navigation, to its neighbours, and to the pages below it.
namespace shapes {

constexpr qint64 childrenOfPage = 10;
constexpr qint64 navigationLinks = 20;
constexpr qint64 neighbourLinks = 20;
constexpr qint64 pagesOfIssue = 100;
constexpr qint64 pagesOfSection = 10'000;

/// The list lengths that the benchmarks measure.
inline void sizes(benchmark::internal::Benchmark* benchmark)
{
    for (const int items : { 10'000, 100'000, 1'000'000, 3'000'000 })
        benchmark->Arg(items);
}

[[nodiscard]] QByteArray urlOf(qint64 number);
[[nodiscard]] QByteArrayList urlsFrom(qint64 first, qint64 count);
/// The page on which a search finds this page first.
[[nodiscard]] constexpr qint64 parentOf(qint64 number)
{
    return (number - 1) / childrenOfPage;
}
/// The page that a search is reading when its list has that many items.
[[nodiscard]] constexpr qint64 pageReadAt(qint64 items)
{
    return parentOf(items);
}
/// The references of a page, in its order.
[[nodiscard]] QByteArrayList linksOf(qint64 number);

/// An item with its answer: mostly pages, some pictures and documents. Items with the same `referer` share its bytes.
[[nodiscard]] FundStück itemOf(qint64 number, const QByteArray& referer);
void fill(FundListe& list, qint64 items);

/// A filter with all five tests on. Most items pass each test, about a third pass all.
[[nodiscard]] ResultFilter fiveTests();

/// A news page of about `size` bytes: a head, and articles with headlines, text, links, a picture and a form.
[[nodiscard]] QByteArray htmlPage(qsizetype size);

} // namespace shapes
