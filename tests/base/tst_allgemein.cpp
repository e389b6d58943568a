// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "support/Table.h"

#include <QTest>

using namespace allgemein;

class tst_allgemein : public QObject {
    Q_OBJECT

private slots:
    void readsLeadingNumber_data();
    void readsLeadingNumber();
    void findsTextInAnyCase_data();
    void findsTextInAnyCase();
    void hidesNoControls_data();
    void hidesNoControls();
};

void tst_allgemein::readsLeadingNumber_data()
{
    const auto row = table<QByteArray, qint64>("text", "number");
    row("blanks and TABs in front", " \t 17", 17);
    row("text behind", "200 OK", 200);
    row("negative", "-1", -1);
    row("plus sign", "+5", 5);
    row("half rounds down to even", "12.5", 12);
    row("half rounds up to even", "13.5", 14);
    row("fraction without digits in front", ".6", 1);
    row("exponents are none", "2e3", 2);
    row("exact beyond 53 bits", "9007199254740993", 9'007'199'254'740'993);
    row("beyond 64 bits", "9223372036854775808", 0);
    row("beyond 64 bits with a fraction", "9223372036854775808.5", 0);
    row("empty", "", 0);
    row("no digits", "-.e5", 0);
    row("text in front", "x7", 0);
}

void tst_allgemein::readsLeadingNumber()
{
    QFETCH(QByteArray, text);
    QTEST(leadingNumber(text), "number");
}

void tst_allgemein::hidesNoControls_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* title, const char16_t* text, const char* shown) {
        QTest::newRow(title) << QString::fromUtf16(text) << QString::fromUtf8(shown);
    };
    row("override of the direction", u"photo\u202Egpj.exe", "photo%E2%80%AEgpj.exe");
    row("embedding and isolate", u"\u202A\u202C\u2066\u2069", "%E2%80%AA%E2%80%AC%E2%81%A6%E2%81%A9");
    row("marks of the direction", u"a\u200E\u200F\u061Cb", "a%E2%80%8E%E2%80%8F%D8%9Cb");
    row("of no width", u"a\uFEFF\u200B\u200C\u200D\u2060", "a%EF%BB%BF%E2%80%8B%E2%80%8C%E2%80%8D%E2%81%A0");
    row("separators", u"\u2028\u2029", "%E2%80%A8%E2%80%A9");
    row("controls", u"\t\n\x7f\u0085", "%09%0A%7F%C2%85");
    row("an invisible tag", u"\U000E0041", "%F3%A0%81%81");
    row("letters, signs and what is encoded already", u"\u00E4 \u05D0\u4E2D\U0001F600&%E2%80%AE", "ä א中😀&%E2%80%AE");
}

void tst_allgemein::hidesNoControls()
{
    QFETCH(QString, text);
    QTEST(withVisibleControls(text), "shown");
}

void tst_allgemein::findsTextInAnyCase_data()
{
    const auto row = table<QByteArray, QByteArray, qsizetype, qsizetype>("text", "needle", "from", "place");
    row("in both cases", "a PaTH=x", "path=", 0, 2);
    row("the first of both cases", "PATH=path=", "path=", 0, 0);
    row("small candidate fails first", "pa PATH=", "path=", 0, 3);
    row("behind the start", "path=PATH=", "path=", 1, 5);
    row("cut off at the end", "xx path", "path=", 0, notFound);
    row("shorter than the needle", "pa", "path=", 0, notFound);
    row("the whole text", "<A ", "<a ", 0, 0);
    row("no letters beyond ASCII", "\xc4=", "\xe4=", 0, notFound);
}

void tst_allgemein::findsTextInAnyCase()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, needle);
    QFETCH(qsizetype, from);
    QTEST(indexOfNoCase(text, needle, from), "place");
}

QTEST_GUILESS_MAIN(tst_allgemein)
#include "tst_allgemein.moc"
