// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/LanguageStock.h"
#include "requests/RequestPrefs.h"

#include <QTest>

class tst_RequestPrefs : public QObject {
    Q_OBJECT

private slots:
    void weighsLanguages();
    void stocksLanguages();
};

void tst_RequestPrefs::weighsLanguages()
{
    RequestPrefs prefs;
    QCOMPARE(prefs.aktSprachen(), "");
    prefs.sprachAuswahl = { "de German", "en English" };
    QCOMPARE(prefs.aktSprachen(), "de;q=1, en;q=0.5");
    // A small weight stays without exponent.
    prefs.sprachAuswahl = { "aa", "ab", "ae", "af", "ak", "am", "an", "ar", "as", "av", "ay", "az" };
    QCOMPARE(prefs.aktSprachen(),
        "aa;q=1, ab;q=0.916666666666667, ae;q=0.833333333333333, af;q=0.75, ak;q=0.666666666666667, "
        "am;q=0.583333333333333, an;q=0.5, ar;q=0.416666666666667, as;q=0.333333333333333, av;q=0.25, "
        "ay;q=0.166666666666667, az;q=0.0833333333333333");
}

void tst_RequestPrefs::stocksLanguages()
{
    const QStringList stock = languageStock::entries();
    QCOMPARE(stock.size(), 205);
    QVERIFY(std::is_sorted(
        stock.begin(), stock.end(), [](const QString& a, const QString& b) { return a.left(2) < b.left(2); }));
    QCOMPARE(languageStock::entryFor(u"de"), QStringLiteral("de German"));
    QCOMPARE(languageStock::entryFor(u"nb"), QStringLiteral("nb Bokm\u00e5l,Nor"));
    QVERIFY(languageStock::entryFor(u"xx").isEmpty());
    QVERIFY(languageStock::entryFor(u"").isEmpty());
}

QTEST_GUILESS_MAIN(tst_RequestPrefs)
#include "tst_RequestPrefs.moc"
