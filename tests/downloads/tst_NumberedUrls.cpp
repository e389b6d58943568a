// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LetterNumbers.h"
#include "base/allgemein.h"
#include "downloads/DLGeschwindigkeitsmessung.h"
#include "downloads/NumberedUrls.h"
#include "support/Table.h"

#include <QTest>

class tst_NumberedUrls : public QObject {
    Q_OBJECT

private slots:
    void writesIndexes_data();
    void writesIndexes();
    void insertsTheIndex();
    void confirms();
    void keepsOneSampleInSix();
    void averagesTheNewestTen();
    void measuresAnew();
};

void tst_NumberedUrls::writesIndexes_data()
{
    const auto row = table<int, IndexType, int, QByteArray>("index", "type", "digits", "text");
    row("decimal", 7, IndexType::Decimal, 3, "007");
    row("decimal, more digits than asked for", 1234, IndexType::Decimal, 2, "1234");
    row("decimal, no digits asked for", 0, IndexType::Decimal, 0, "0");
    row("hexadecimal", 10, IndexType::Hexadecimal, 4, "A");
    row("hexadecimal, the greatest", 2147483647, IndexType::Hexadecimal, 1, "7FFFFFFF");
    row("letters, the first", 1, IndexType::CapitalLetters, 1, "A");
    row("letters, the last alone", 26, IndexType::CapitalLetters, 1, "Z");
    row("letters, with the digit zero", 27, IndexType::CapitalLetters, 1, "A@");
    row("small letters, with the digit zero", 27, IndexType::SmallLetters, 1, "a`");
    row("small letters", 28, IndexType::SmallLetters, 1, "aa");
    row("nothing in letters", 0, IndexType::SmallLetters, 3, "");
}

void tst_NumberedUrls::writesIndexes()
{
    QFETCH(int, index);
    QFETCH(IndexType, type);
    QFETCH(int, digits);
    const QByteArray written = indexText(index, type, digits);
    QTEST(written, "text");
    if (type == IndexType::CapitalLetters)
        QCOMPARE(letterNumbers::number(written, letterNumbers::Letters::Capital), index);
}

void tst_NumberedUrls::insertsTheIndex()
{
    NumberedUrls run;
    run.startUrl = "http://h/a";
    for (const auto& [pos, url] : { std::pair(0, "5http://h/a"), { 9, "http://h/5a" }, { 10, "http://h/a5" },
             { 99, "http://h/a5" }, { -1, "5http://h/a" } }) {
        run.pos = pos;
        QCOMPARE(run.urlFor(5), url);
    }
}

void tst_NumberedUrls::confirms()
{
    NumberedUrls run;
    run.startUrl = "x.y.z/img.jpg";
    QVERIFY(run.confirm());
    QCOMPARE(run.startUrl, "http://x.y.z/img.jpg");
    for (const char* const typed : { "HTTP://h/", "https://h/" }) {
        run.startUrl = typed;
        QVERIFY(run.confirm());
        QCOMPARE(run.startUrl, run.isHttp() ? "http://h/" : "https://h/");
    }
    QVERIFY(!run.isHttp());
    // The position counts characters, not bytes.
    run.startUrl = allgemein::toSystem(QStringLiteral("http://h/ü.jpg"));
    run.pos = 10;
    QCOMPARE(allgemein::fromSystem(run.urlFor(1)), QStringLiteral("http://h/ü1.jpg"));
    run.startUrl = ".z";
    QVERIFY(!run.confirm());
    QCOMPARE(run.startUrl, ".z");
    QCOMPARE(letterNumbers::number("A1", letterNumbers::Letters::Capital), 0);
    QCOMPARE(letterNumbers::number("ZZZZZZZZ", letterNumbers::Letters::Capital), 0);
}

void tst_NumberedUrls::keepsOneSampleInSix()
{
    DLGeschwindigkeitsmessung meter;
    QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 0);
    for (int offer = 0; offer < 6; ++offer) {
        meter.push(offer == 0 ? 1000 : 1500, offer == 0 ? 0 : 999'999);
        QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 0);
    }
    meter.push(2000, 51'200);
    QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 51'200);
}

void tst_NumberedUrls::averagesTheNewestTen()
{
    DLGeschwindigkeitsmessung meter;
    qint64 total = 0;
    // Ten fast samples push the slow start out of the average. The total grows beyond 32 bits.
    for (int offer = 0; offer < 6 * 20; ++offer) {
        total += offer < 6 * 10 ? 1 : 1'000'000'000;
        meter.push(offer * 100, total);
    }
    QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 10'000'000'000);
    DLGeschwindigkeitsmessung halves;
    for (int offer = 0; offer < 7; ++offer)
        halves.push(offer == 0 ? 0 : 2000, offer == 0 ? 0 : 5);
    QCOMPARE(halves.getDurschnittsGeschwindigkeit(), 2);
}

void tst_NumberedUrls::measuresAnew()
{
    DLGeschwindigkeitsmessung meter;
    for (int offer = 0; offer < 7; ++offer)
        meter.push(offer * 1000, offer * 5000);
    meter.reset();
    // The next five samples are skipped. Those of the last transfer no longer count.
    for (int offer = 0; offer < 5; ++offer) {
        meter.push(offer, offer);
        QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 0);
    }
    meter.push(1000, 0);
    for (int offer = 0; offer < 6; ++offer)
        meter.push(2000, 300);
    QCOMPARE(meter.getDurschnittsGeschwindigkeit(), 300);
}

QTEST_APPLESS_MAIN(tst_NumberedUrls)

#include "tst_NumberedUrls.moc"
