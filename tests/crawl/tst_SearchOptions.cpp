// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/SearchOptions.h"
#include "support/Table.h"

#include <QTest>

class tst_SearchOptions : public QObject {
    Q_OBJECT

private slots:
    void givesEntryItsLevel_data();
    void givesEntryItsLevel();
    void followsByMode_data();
    void followsByMode();
    void confirms_data();
    void confirms();
};

void tst_SearchOptions::givesEntryItsLevel_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint32>("level");
    const auto row = [](const char* typed, const char* text, qint32 level) {
        QTest::newRow(typed) << QByteArray(typed) << QByteArray(text) << level;
    };
    row("example.org", "http://example.org", 2);
    row("http://example.org/", "http://example.org:80/", 3);
    row("http://h:8080", "http://h:8080/", 2);
    row("http://h/a/x.html", "http://h:80/a/", 3);
    row("127.0.0.1:8080/a", "http://127.0.0.1:8080/", 5);
    row("http://h/a/b:c/d", "http://h/a/b:0/a/b:c/", 4);
    row("h/go?to=http://i", "http://h/go?to=http:0/go?to=http://", 4);
}

void tst_SearchOptions::givesEntryItsLevel()
{
    QFETCH(QByteArray, typed);
    const SubUrl entry = SubUrl::fromText(typed);
    QTEST(entry.text, "text");
    QTEST(entry.level, "level");
    // An entry comes back from a file as it was.
    const SubUrl stored = SubUrl::fromText(entry.text);
    QCOMPARE(stored.text, entry.text);
    QCOMPARE(stored.level, entry.level);
}

void tst_SearchOptions::followsByMode_data()
{
    const auto row = table<QByteArray, bool>("url", "inside");
    row("the host itself", "http://example.org/x", true);
    row("a host below, on another port", "http://www.example.org:8080/x", true);
    row("a host that breaks off", "http://example.or/x", false);
    row("another protocol", "https://example.org/x", false);
    row("below the directory, the port not written", "http://h/a/b/y.html", true);
    row("the directory on another port", "http://h:81/a/y.html", false);
    row("above the directory", "http://h:80/y.html", false);
    row("a TAB as it is recorded", "http://h:80/b\tc/y.html", true);
}

void tst_SearchOptions::followsByMode()
{
    QFETCH(QByteArray, url);
    QFETCH(bool, inside);
    SearchOptions options;
    options.unterpfade = { SubUrl::fromText("example.org"), SubUrl::fromText("http://h/a/"),
        SubUrl::fromText("h/b%09c/") };
    QVERIFY(options.follows(url));
    options.followSub = FollowMode::Inside;
    QCOMPARE(options.follows(url), inside);
    options.followSub = FollowMode::Outside;
    QCOMPARE(options.follows(url), !inside);

    options.unterpfade.clear();
    QVERIFY(options.follows(url));
    options.followSub = FollowMode::Inside;
    QVERIFY(!options.follows(url));
}

void tst_SearchOptions::confirms_data()
{
    const auto row = table<QByteArray, bool, FollowMode, Confirmation, QByteArray>(
        "typed", "maxDepth", "mode", "confirmation", "startUrl");
    using enum Confirmation;
    row("a host", "srv.example.org", true, FollowMode::All, Limited, "http://srv.example.org");
    row("a whole URL", "http://h:8080/a", true, FollowMode::All, Limited, "http://h:8080/a");
    row("capitals are another protocol", "HTTP://h/", true, FollowMode::All, Limited, "http://HTTP://h/");
    row("a host that begins with a dot", "http://.org", true, FollowMode::All, InvalidStartUrl, "http://.org");
    row("a host that ends with a dot", "http://h./", true, FollowMode::All, InvalidStartUrl, "http://h./");
    row("nothing", "", true, FollowMode::All, InvalidStartUrl, "");
    const QByteArray endless = "http://h/" + QByteArray(64 * 1024, 'x');
    row("too long to be recorded", endless, true, FollowMode::All, InvalidStartUrl, endless);
    row("staying inside is a limit", "h", false, FollowMode::Inside, Limited, "http://h");
    row("no limit", "h", false, FollowMode::All, Unlimited, "http://h");
    row("staying outside is no limit", "h", false, FollowMode::Outside, Unlimited, "http://h");
}

void tst_SearchOptions::confirms()
{
    QFETCH(QByteArray, typed);
    QFETCH(bool, maxDepth);
    QFETCH(FollowMode, mode);
    SearchOptions options;
    options.startUrl = typed;
    options.maxDepth = maxDepth;
    options.followSub = mode;
    QTEST(options.confirm(), "confirmation");
    QTEST(options.startUrl, "startUrl");
}

QTEST_GUILESS_MAIN(tst_SearchOptions)
#include "tst_SearchOptions.moc"
