// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"
#include "results/ResultFilter.h"

#include <QTest>

class tst_ResultFilter : public QObject {
    Q_OBJECT

private slots:
    void showsByEachTest_data();
    void showsByEachTest();
    void keepsMimeTypesSorted();
};

namespace {

MimeListe mimeTypes(const QByteArrayList& listed)
{
    MimeListe liste;
    for (const char* met : { "text/html", "image/png", "application/pdf" })
        liste.insert(met);
    for (const QByteArray& type : listed)
        liste.insert(type).listed = true;
    return liste;
}

} // namespace

void tst_ResultFilter::showsByEachTest_data()
{
    QTest::addColumn<ResultFilter>("filter");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("unknownSizeShown");
    const auto row = [](const char* title, bool shown, bool unknownSizeShown, auto change) {
        ResultFilter filter;
        change(filter);
        QTest::newRow(title) << filter << shown << unknownSizeShown;
    };
    const auto same = [row](const char* title, bool shown, auto change) {
        row(title, shown, shown, change);
    };
    using F = ResultFilter;
    same("no test", true, [](F&) {});
    same("depth on both bounds", true, [](F& f) { f.depth = { true, 2, 2 }; });
    same("depth above", false, [](F& f) { f.depth = { true, 0, 1 }; });
    same("depth bounds that are off", true, [](F& f) { f.depth = { false, 5, 9 }; });
    same("bounds the wrong way round", false, [](F& f) { f.depth = { true, 3, 1 }; });
    row("size on the upper bound", true, false, [](F& f) { f.size = { true, 0, 5'000'000'000 }; });
    row("size below", false, false, [](F& f) { f.size = { true, 5'000'000'001, 9'000'000'000 }; });
    row("a lower bound of -1 takes unknown sizes in", true, true, [](F& f) { f.size = { true, -1, 5'000'000'000 }; });
    same("type on the white list, in another case", true, [](F& f) {
        f.mimeSwitch = FilterSwitch::Whitelist;
        f.mimeListe = mimeTypes({ "IMAGE/png" });
    });
    same("type met but not listed", false, [](F& f) {
        f.mimeSwitch = FilterSwitch::Whitelist;
        f.mimeListe = mimeTypes({ "text/html" });
    });
    same("white list of nothing", false, [](F& f) { f.mimeSwitch = FilterSwitch::Whitelist; });
    same("type on the black list", false, [](F& f) {
        f.mimeSwitch = FilterSwitch::Blacklist;
        f.mimeListe = mimeTypes({ "image/png" });
    });
    same("type with parameters is another", true, [](F& f) {
        f.mimeSwitch = FilterSwitch::Blacklist;
        f.mimeListe = mimeTypes({ "image/png; q=1" });
    });
    same("part of the URL", true, [](F& f) {
        f.urlSwitch = FilterSwitch::Whitelist;
        f.filterTexte = { "nowhere", "/Pic" };
    });
    same("part in another case", false, [](F& f) {
        f.urlSwitch = FilterSwitch::Whitelist;
        f.filterTexte = { "/pic" };
    });
    same("black list of parts", false, [](F& f) {
        f.urlSwitch = FilterSwitch::Blacklist;
        f.filterTexte = { "nowhere", ".png" };
    });
    same("black list of nothing", true, [](F& f) { f.urlSwitch = FilterSwitch::Blacklist; });
    same("branch of the host", true, [](F& f) { f.branch = SubUrl { "http://org", 1 }; });
    same("branch of a directory", true, [](F& f) { f.branch = SubUrl::fromText("www.example.org:80/Pics/"); });
    same("another branch", false, [](F& f) { f.branch = SubUrl::fromText("www.example.org:80/Docs/"); });
    same("root of the tree", true, [](F& f) { f.branch = SubUrl { "http://", 0 }; });
    same("one test of several fails", false, [](F& f) {
        f.depth = { true, 2, 2 };
        f.urlSwitch = FilterSwitch::Whitelist;
    });
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

void tst_ResultFilter::keepsMimeTypesSorted()
{
    MimeListe liste;
    for (const char* type : { "text/html", "Image/png", "?", "image/gif", "TEXT/HTML", "" })
        liste.insert(type);
    QByteArrayList types;
    for (const MimeListe::Entry& entry : liste.entries())
        types += entry.type;
    QCOMPARE(types, (QByteArrayList { "", "?", "image/gif", "Image/png", "text/html" }));
}

QTEST_GUILESS_MAIN(tst_ResultFilter)
#include "tst_ResultFilter.moc"
