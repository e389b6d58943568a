// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"

#include <QBuffer>
#include <QTest>

using namespace allgemein;

class tst_allgemein : public QObject {
    Q_OBJECT

private slots:
    void readsLeadingNumber_data();
    void readsLeadingNumber();
    void numberBeyond32BitsIsNone();
    void findsTextInAnyCase_data();
    void findsTextInAnyCase();
    void encodesWhatBreaksALine();
    void writesValuesOnOneLine();
    void refusesNamesThatLeaveTheFolder();
};

void tst_allgemein::readsLeadingNumber_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("number");
    QTest::newRow("plain digits") << QByteArray("1234") << qint64 { 1234 };
    QTest::newRow("blanks and TABs in front") << QByteArray(" \t 17") << qint64 { 17 };
    QTest::newRow("text behind") << QByteArray("200 OK") << qint64 { 200 };
    QTest::newRow("negative") << QByteArray("-1") << qint64 { -1 };
    QTest::newRow("plus sign") << QByteArray("+5") << qint64 { 5 };
    QTest::newRow("half rounds down to even") << QByteArray("12.5") << qint64 { 12 };
    QTest::newRow("half rounds up to even") << QByteArray("13.5") << qint64 { 14 };
    QTest::newRow("fraction without digits in front") << QByteArray(".6") << qint64 { 1 };
    QTest::newRow("exponents are none") << QByteArray("2e3") << qint64 { 2 };
    QTest::newRow("beyond 32 bits") << QByteArray("5000000000") << qint64 { 5'000'000'000 };
    QTest::newRow("exact beyond 53 bits") << QByteArray("9007199254740993") << qint64 { 9'007'199'254'740'993 };
    QTest::newRow("beyond 64 bits") << QByteArray("9223372036854775808") << qint64 { 0 };
    QTest::newRow("beyond 64 bits with a fraction") << QByteArray("9223372036854775808.5") << qint64 { 0 };
    QTest::newRow("empty") << QByteArray() << qint64 { 0 };
    QTest::newRow("no digits") << QByteArray("-.e5") << qint64 { 0 };
    QTest::newRow("text in front") << QByteArray("x7") << qint64 { 0 };
}

void tst_allgemein::readsLeadingNumber()
{
    QFETCH(QByteArray, text);
    QTEST(leadingNumber(text), "number");
}

void tst_allgemein::numberBeyond32BitsIsNone()
{
    QCOMPARE(leadingNumber32("2147483647"), 2147483647);
    QCOMPARE(leadingNumber32("2147483648"), 0);
    QCOMPARE(leadingNumber32("-2147483649"), 0);
}

void tst_allgemein::findsTextInAnyCase_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("needle");
    QTest::addColumn<qsizetype>("from");
    QTest::addColumn<qsizetype>("place");
    QTest::newRow("needle's own case") << QByteArray("a path=x") << QByteArray("path=") << qsizetype { 0 }
                                       << qsizetype { 2 };
    QTest::newRow("other case") << QByteArray("a PaTH=x") << QByteArray("path=") << qsizetype { 0 } << qsizetype { 2 };
    QTest::newRow("the first of both cases")
        << QByteArray("PATH=path=") << QByteArray("path=") << qsizetype { 0 } << qsizetype { 0 };
    QTest::newRow("small candidate fails first")
        << QByteArray("pa PATH=") << QByteArray("path=") << qsizetype { 0 } << qsizetype { 3 };
    QTest::newRow("behind the start") << QByteArray("path=PATH=") << QByteArray("path=") << qsizetype { 1 }
                                      << qsizetype { 5 };
    QTest::newRow("cut off at the end") << QByteArray("xx path") << QByteArray("path=") << qsizetype { 0 } << notFound;
    QTest::newRow("shorter than the needle") << QByteArray("pa") << QByteArray("path=") << qsizetype { 0 } << notFound;
    QTest::newRow("the whole text") << QByteArray("<A ") << QByteArray("<a ") << qsizetype { 0 } << qsizetype { 0 };
    QTest::newRow("no letters beyond ASCII")
        << QByteArray("\xc4=") << QByteArray("\xe4=") << qsizetype { 0 } << notFound;
}

void tst_allgemein::findsTextInAnyCase()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, needle);
    QFETCH(qsizetype, from);
    QTEST(indexOfNoCase(text, needle, from), "place");
}

void tst_allgemein::encodesWhatBreaksALine()
{
    QCOMPARE(onOneLine(QByteArrayLiteral("a\tb\rc\nd\0e")), "a%09b%0Dc%0Ad%00e");
    QCOMPARE(onOneLine("a b%09\x7f\xff"), "a b%09\x7f\xff");
}

void tst_allgemein::writesValuesOnOneLine()
{
    QBuffer file;
    QVERIFY(file.open(QIODevice::WriteOnly));
    writeKeyValue(file, "UserAgent", "a=b\r\nSub=x");
    QCOMPARE(file.data(), "UserAgent=a=b%0D%0ASub=x\r\n");
    const auto pair = splitKeyValue("UserAgent=a=b");
    QCOMPARE(pair->key, "UserAgent");
    QCOMPARE(pair->value, "a=b");
    QVERIFY(!splitKeyValue("Results:"));
}

void tst_allgemein::refusesNamesThatLeaveTheFolder()
{
    QVERIFY(isPlainFileName("a..b"));
    for (const QByteArray& name : { QByteArray(), QByteArray("."), QByteArray("../x"), QByteArrayLiteral("a\0b") })
        QVERIFY(!isPlainFileName(name));
}

QTEST_GUILESS_MAIN(tst_allgemein)
#include "tst_allgemein.moc"
