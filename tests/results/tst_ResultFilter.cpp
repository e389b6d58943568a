// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"
#include "results/ResultFilter.h"

#include <QTest>

#include <type_traits>

class tst_ResultFilter : public QObject {
    Q_OBJECT

private slots:
    void showsByEachTest_data();
    void showsByEachTest();
    void theRootShowsEveryProtocol();
    void theGreatestBoundIsNone();
};

namespace {

template <typename Value> ResultFilter by(Value ResultFilter::*test, const std::type_identity_t<Value>& value)
{
    ResultFilter filter;
    filter.*test = value;
    return filter;
}

ResultFilter byType(FilterSwitch mode, const QByteArray& listed)
{
    ResultFilter filter;
    filter.mimeSwitch = mode;
    for (const char* met : { "text/html", "image/png", "application/pdf" })
        filter.mimeListe.insert(met);
    filter.mimeListe.insert(listed).listed = true;
    return filter;
}

ResultFilter byParts(FilterSwitch mode, const QList<QByteArray>& parts)
{
    ResultFilter filter;
    filter.urlSwitch = mode;
    filter.filterTexte = parts;
    return filter;
}

} // namespace

void tst_ResultFilter::showsByEachTest_data()
{
    QTest::addColumn<ResultFilter>("filter");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("unknownSizeShown");
    const auto size = [](const char* title, const ResultFilter& filter, bool shown, bool unknownSizeShown) {
        QTest::newRow(title) << filter << shown << unknownSizeShown;
    };
    const auto row = [size](const char* title, const ResultFilter& filter, bool shown) {
        size(title, filter, shown, shown);
    };
    using enum FilterSwitch;
    row("no test", {}, true);
    row("depth on both bounds", by(&ResultFilter::depth, { true, 2, 2 }), true);
    row("depth above", by(&ResultFilter::depth, { true, 0, 1 }), false);
    row("depth bounds that are off", by(&ResultFilter::depth, { false, 5, 9 }), true);
    size("size on the upper bound", by(&ResultFilter::size, { true, 0, 5'000'000'000 }), true, false);
    size("size below", by(&ResultFilter::size, { true, 5'000'000'001, 9'000'000'000 }), false, false);
    size(
        "a lower bound of -1 takes unknown sizes in", by(&ResultFilter::size, { true, -1, 5'000'000'000 }), true, true);
    row("type on the white list, in another case", byType(Whitelist, "IMAGE/png"), true);
    row("type met but not listed", byType(Whitelist, "text/html"), false);
    row("type on the black list", byType(Blacklist, "image/png"), false);
    row("type with parameters is another", byType(Blacklist, "image/png; q=1"), true);
    row("part of the URL", byParts(Whitelist, { "nowhere", "/Pic" }), true);
    row("part in another case", byParts(Whitelist, { "/pic" }), false);
    row("black list of parts", byParts(Blacklist, { "nowhere", ".png" }), false);
    row("branch of the host", by(&ResultFilter::branch, SubUrl { "http://org", 1 }), true);
    row("branch of a directory", by(&ResultFilter::branch, SubUrl::fromText("www.example.org:80/Pics/")), true);
    row("another branch", by(&ResultFilter::branch, SubUrl::fromText("www.example.org:80/Docs/")), false);
    row("root of the tree", by(&ResultFilter::branch, SubUrl { "http://", 0 }), true);
    ResultFilter two = byParts(Whitelist, {});
    two.depth = { true, 2, 2 };
    row("one test of several fails", two, false);
}

void tst_ResultFilter::showsByEachTest()
{
    QFETCH(ResultFilter, filter);
    FundStück item;
    item.adresse = "http://www.example.org:80/Pics/a.png";
    item.mimeTyp = "image/PNG";
    item.tiefe = 2;
    item.groesse = 5'000'000'000;
    QTEST(filter.shows(item), "shown");
    item.groesse = -1;
    QTEST(filter.shows(item), "unknownSizeShown");
}

void tst_ResultFilter::theRootShowsEveryProtocol()
{
    FundStück item;
    item.adresse = "ftp://h/";
    ResultFilter filter;
    filter.setBranch(SubUrl { "http://h", 1 });
    QVERIFY(!filter.shows(item));
    filter.setBranch(SubUrl { "http://", 0 });
    QVERIFY(filter.shows(item));
}

void tst_ResultFilter::theGreatestBoundIsNone()
{
    const qint64 large = 5 * FilterRange::greatest;
    QVERIFY((FilterRange { true, 0, FilterRange::greatest }.admits(large)));
    QVERIFY(!(FilterRange { true, 0, FilterRange::greatest - 1 }.admits(large)));
    QVERIFY((FilterRange { true, FilterRange::greatest, FilterRange::greatest }.admits(large)));
    QVERIFY(!(FilterRange { true, FilterRange::greatest, FilterRange::greatest }.admits(large, 1024)));
}

QTEST_GUILESS_MAIN(tst_ResultFilter)
#include "tst_ResultFilter.moc"
