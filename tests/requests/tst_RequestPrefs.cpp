// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/LanguageStock.h"
#include "requests/RequestPrefs.h"

#include <QBuffer>
#include <QTest>

using namespace twkEinstellungen;

class tst_RequestPrefs : public QObject {
    Q_OBJECT

private slots:
    void weighsLanguages_data();
    void weighsLanguages();
    void survivesItsBlock();
    void stocksLanguages();
};

static QByteArray blockOf(const RequestPrefs& prefs)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    writeRequestPrefs(file, prefs);
    return file.data();
}

void tst_RequestPrefs::weighsLanguages_data()
{
    QTest::addColumn<QByteArrayList>("chosen");
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("none") << QByteArrayList() << QByteArray();
    QTest::newRow("one") << QByteArrayList { "de German" } << QByteArray("de;q=1");
    QTest::newRow("two") << QByteArrayList { "de German", "en English" } << QByteArray("de;q=1, en;q=0.5");
    QTest::newRow("three") << QByteArrayList { "de", "en", "fr" }
                           << QByteArray("de;q=1, en;q=0.666666666666667, fr;q=0.333333333333333");
    QTest::newRow("a small weight stays without exponent")
        << QByteArrayList { "aa", "ab", "ae", "af", "ak", "am", "an", "ar", "as", "av", "ay", "az" }
        << QByteArray("aa;q=1, ab;q=0.916666666666667, ae;q=0.833333333333333, af;q=0.75, ak;q=0.666666666666667, "
                      "am;q=0.583333333333333, an;q=0.5, ar;q=0.416666666666667, as;q=0.333333333333333, av;q=0.25, "
                      "ay;q=0.166666666666667, az;q=0.0833333333333333");
}

void tst_RequestPrefs::weighsLanguages()
{
    QFETCH(QByteArrayList, chosen);
    RequestPrefs prefs;
    prefs.sprachAuswahl = chosen;
    QTEST(prefs.aktSprachen(), "header");
}

void tst_RequestPrefs::survivesItsBlock()
{
    QCOMPARE(blockOf(RequestPrefs()),
        "Referrer=1\r\nUseUserAgent=1\r\nUserAgent=\r\nUseLanguage=0\r\nuseCookies=0\r\nsetCookies=1\r\n"
        "dontWarnAboutCookiesAgain=0\r\n");

    RequestPrefs prefs { true, false, false, "a = b", true, { "de German", "en English" }, {}, false, true };
    const QByteArray block = blockOf(prefs);
    QCOMPARE(block,
        "Referrer=0\r\nUseUserAgent=0\r\nUserAgent=a = b\r\nUseLanguage=1\r\nLanguage=de German\r\n"
        "Language=en English\r\nuseCookies=1\r\nsetCookies=0\r\ndontWarnAboutCookiesAgain=1\r\n");
    RequestPrefs read;
    for (const QByteArray& line : block.split('\n').first(block.count('\n'))) {
        const qsizetype equals = line.indexOf('=');
        QVERIFY(readRequestPref(read, line.first(equals), line.sliced(equals + 1).chopped(1)));
    }
    QCOMPARE(blockOf(read), block);
    QCOMPARE(read.languageHeader, "de;q=1, en;q=0.5");
}

void tst_RequestPrefs::stocksLanguages()
{
    const QStringList stock = LanguageStock::entries();
    QCOMPARE(stock.size(), 205);
    QVERIFY(std::is_sorted(
        stock.begin(), stock.end(), [](const QString& a, const QString& b) { return a.left(2) < b.left(2); }));
    QCOMPARE(LanguageStock::entryFor(u"de"), QStringLiteral("de German"));
    QCOMPARE(LanguageStock::entryFor(u"nb"), QStringLiteral("nb Bokm\u00e5l,Nor"));
    QVERIFY(LanguageStock::entryFor(u"xx").isEmpty());
    QVERIFY(LanguageStock::entryFor(u"").isEmpty());
}

QTEST_GUILESS_MAIN(tst_RequestPrefs)
#include "tst_RequestPrefs.moc"
