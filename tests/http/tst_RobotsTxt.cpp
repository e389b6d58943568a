// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/RobotsTxt.h"
#include "support/Table.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace std::chrono_literals;

class tst_RobotsTxt : public QObject {
    Q_OBJECT

private slots:
    void readsGroupsAndLines_data();
    void readsGroupsAndLines();
    void comparesPaths_data();
    void comparesPaths();
    void agreesWithRegularExpressions();
    void readsDelays_data();
    void readsDelays();
    void judgesAnswers_data();
    void judgesAnswers();
    void bearsHostileFiles_data();
    void bearsHostileFiles();
};

/// The paths of a list between blanks that a file allows.
static QByteArray allowed(const QByteArray& file, const QByteArray& paths)
{
    const auto robots = RobotsTxt::parse(file, "Tarnwick");
    QByteArrayList result = paths.split(' ');
    result.removeIf([&](const QByteArray& path) { return !robots.allows(path); });
    return result.join(' ');
}

void tst_RobotsTxt::readsGroupsAndLines_data()
{
    const auto row = table<QByteArray, QByteArray>("file", "allowedOfABC");
    row("an empty file", "", "/a /b /c");
    row("a group for all", "User-agent: *\nDisallow: /a\n", "/b /c");
    row("the own group alone", "User-agent: *\nDisallow: /a\n\nUser-agent: Tarnwick\nDisallow: /b\n", "/a /c");
    row("the own group first", "User-agent: tarnwick\nDisallow: /b\n\nUser-agent: *\nDisallow: /a\n", "/a /c");
    row("an own group without rules", "User-agent: *\nDisallow: /\n\nUser-agent: Tarnwick\n", "/a /b /c");
    row("a name with a version", "User-agent: TARNWICK/2.0 (x)\nDisallow: /b\n", "/a /c");
    row("a longer name", "User-agent: Tarnwicks\nDisallow: /b\nUser-agent: x\nDisallow: /\n", "/a /b /c");
    row("two groups of a name",
        "user-agent: Tarnwick\ndisallow: /a\nuser-agent: o\ndisallow: /\nuser-agent: Tarnwick\ndisallow: /b", "/c");
    row("two names of a group", "User-agent: o\nUser-agent: Tarnwick\nDisallow: /b\n", "/a /c");
    row("other lines between the names", "User-agent: Tarnwick\nSitemap: http://h/\nUser-agent: o\nDisallow: /b\n",
        "/a /c");
    row("a rule before any group", "Disallow: /\nUser-agent: *\nDisallow: /a\n", "/b /c");
    row("an empty rule", "User-agent: *\nDisallow:\n", "/a /b /c");
    row("line ends of all kinds, comments and blanks",
        "\xEF\xBB\xBFUSER-AGENT :\t* # all\r\n\r#Disallow: /c\rDisAllow:/a#x\r\n  Disallow : /b  \n", "/c");
    row("no last line end", "User-agent: *\nDisallow: /a", "/b /c");
    row("no colon", "User-agent: *\nDisallow /a\nDisallow: /b\n", "/a /c");
    row("a page of HTML", "<html><body>Disallow: everything</body></html>", "/a /b /c");
}

void tst_RobotsTxt::readsGroupsAndLines()
{
    QFETCH(QByteArray, file);
    QTEST(allowed(file, "/a /b /c"), "allowedOfABC");
}

void tst_RobotsTxt::comparesPaths_data()
{
    const auto row = table<QByteArrayList, QByteArray, QByteArray>("rules", "yes", "no");
    // The examples that RFC 9309 gives.
    row("the longest rule", { "Allow: /example/page/", "Disallow: /example/page/disallowed.gif" },
        "/example/page/a.gif", "/example/page/disallowed.gif");
    row("a wildcard", { "Disallow: *.gif$", "Allow: /publications/", "Disallow: /example/" },
        "/publications/b.gif /b.gift /x", "/b.gif /example/x");
    row("a special byte taken literally", { "Disallow: /path/file-with-a-%2A.html", "Disallow: /path/foo-%24" },
        "/path/file-with-a-x.html /path/foo-", "/path/file-with-a-*.html /path/file-with-a-%2a.html /path/foo-$");
    row("a query", { "Disallow: /foo/bar?baz=http://foo.bar" }, "/foo/bar?baz=quz",
        "/foo/bar?baz=http%3A%2F%2Ffoo.bar /foo/bar?baz=http://foo.bar");
    row("a raw byte", { "Disallow: /foo/bar/\xE3\x83\x84" }, "/foo/bar/",
        "/foo/bar/%E3%83%84 /foo/bar/%e3%83%84 /foo/bar/\xE3\x83\x84");
    row("an encoded byte", { "Disallow: /foo/bar/%E3%83%84" }, "/foo/bar/", "/foo/bar/%e3%83%84 /foo/bar/\xE3\x83\x84");
    row("encoded letters", { "Disallow: /foo/bar/%62%61%7A" }, "/foo/bar/%42", "/foo/bar/baz /foo/bar/%62az");
    // Others.
    row("equal rules", { "Disallow: /a", "Allow: /a" }, "/a", "");
    row("an encoded slash", { "Disallow: /a/b", "Disallow: /c%2Fd" }, "/a%2Fb /c/d", "/a/b /c%2fd");
    row("case counts", { "Disallow: /Ab" }, "/ab", "/Ab");
    row("the file itself", { "Disallow: /" }, "/robots.txt", "/robots.txt?x / /a");
    row("the root alone", { "Allow: /$", "Disallow: /" }, "/", "/a /?");
    row("an empty path", { "Disallow: /$" }, "/a", " /");
    row("a dollar inside", { "Disallow: /a$b" }, "/a /ab", "/a$b /a%24b");
    row("nothing between two parts", { "Disallow: /a*a$" }, "/a /ab", "/aa /aba");
    row("the last place counts at the end", { "Disallow: /*b$" }, "/abc", "/b /bab");
    row("a percent sign that encodes nothing", { "Disallow: /%zz", "Disallow: /x%4" }, "/zz", "/%zz /x%4");
}

void tst_RobotsTxt::comparesPaths()
{
    QFETCH(QByteArrayList, rules);
    QFETCH(QByteArray, yes);
    QFETCH(QByteArray, no);
    const QByteArray file = "User-agent: *\n" + rules.join('\n');
    QCOMPARE(allowed(file, yes), yes);
    QCOMPARE(allowed(file, no), QByteArray());
}

/// Judges random rules as RFC 9309 words it, each rule as a regular expression.
void tst_RobotsTxt::agreesWithRegularExpressions()
{
    QRandomGenerator random(9309);
    const auto text = [&](const QByteArray& letters, int most) {
        QByteArray result = "/";
        for (int left = random.bounded(most); left > 0; --left)
            result += letters[random.bounded(static_cast<int>(letters.size()))];
        return result;
    };
    int forbidden = 0;
    for (int round = 0; round < 5000; ++round) {
        QByteArray file = "User-agent: *\n";
        const QByteArray path = text("ab/", 8);
        qsizetype longest = 0;
        bool allows = true;
        for (int left = 3; left > 0; --left) {
            const QByteArray pattern = text("ab/a*", 6) + (random.bounded(3) == 0 ? "$" : "");
            // Several stars in a row count as one.
            if (pattern.contains("**"))
                continue;
            const bool isAllow = random.bounded(2) == 0;
            file += (isAllow ? "Allow: " : "Disallow: ") + pattern + '\n';
            QString expression = QLatin1Char('^') + QString::fromLatin1(pattern).replace(u'*', QLatin1String(".*"));
            const bool isMatch = QRegularExpression(expression).match(QString::fromLatin1(path)).hasMatch();
            if (isMatch && (pattern.size() > longest || (pattern.size() == longest && isAllow))) {
                longest = pattern.size();
                allows = isAllow;
            }
        }
        forbidden += allows ? 0 : 1;
        QVERIFY2(
            RobotsTxt::parse(file, "Tarnwick").allows(path) == allows, qPrintable(QString::fromLatin1(file + path)));
    }
    QVERIFY(forbidden > 500 && forbidden < 4500);
}

void tst_RobotsTxt::readsDelays_data()
{
    const auto row = table<QByteArray, int>("file", "milliseconds");
    row("a fraction", "User-agent: *\nCrawl-delay: 1.5\n", 1500);
    row("of the own group", "User-agent: *\nCrawl-delay: 9\nDisallow:\nUser-agent: Tarnwick\nCrawl-delay: 2\n", 2000);
    row("not in the own group", "User-agent: *\nCrawl-delay: 9\nDisallow:\nUser-agent: Tarnwick\nDisallow: /\n", -1);
    row("too long", "User-agent: *\nCrawl-delay: 1e300\n", 60000);
    row("the longest of two", "User-agent: *\nCrawl-delay: 3\nCrawl-delay: 2\n", 3000);
    row("no numbers", "User-agent: *\nCrawl-delay: nan\nCrawl-delay: inf\nCrawl-delay: -1\nCrawl-delay: 2 s\n", -1);
}

void tst_RobotsTxt::readsDelays()
{
    QFETCH(QByteArray, file);
    const auto delay = RobotsTxt::parse(file, "Tarnwick").crawlDelay();
    QTEST(static_cast<int>(delay.value_or(-1ms).count()), "milliseconds");
}

void tst_RobotsTxt::judgesAnswers_data()
{
    QTest::addColumn<qint32>("status");
    QTest::addColumn<QByteArray>("allowedOfAB");
    const auto row = [](qint32 status, const char* allowedOfAB) {
        QTest::addRow("%d", status) << status << QByteArray(allowedOfAB);
    };
    row(0, "");
    row(200, "/b");
    row(204, "/b");
    row(301, "/a /b");
    row(404, "/a /b");
    row(429, "/a /b");
    row(499, "/a /b");
    row(500, "");
    row(503, "");
    row(999, "");
    row(100, "");
}

void tst_RobotsTxt::judgesAnswers()
{
    QFETCH(qint32, status);
    const auto robots = RobotsTxt::fromAnswer(
        status == 0 ? std::nullopt : std::optional(status), "User-agent: *\nDisallow: /a\n", "Tarnwick");
    QByteArrayList paths { "/a", "/b" };
    paths.removeIf([&](const QByteArray& path) { return !robots.allows(path); });
    QTEST(paths.join(' '), "allowedOfAB");
    QVERIFY(robots.allows("/robots.txt"));
}

void tst_RobotsTxt::bearsHostileFiles_data()
{
    const auto row = table<QByteArray, bool>("rules", "allows");
    row("a pattern that could be tried in many ways", "Disallow: /" + QByteArray("*a").repeated(100'000) + "$\n", true);
    const QByteArray pattern = "Disallow: /" + QByteArray("*a").repeated(300) + "*b$\n";
    row("many such patterns", pattern.repeated(800), true);
    row("nothing but stars", "Disallow: /" + QByteArray(400'000, '*') + "$\n", false);
    row("more patterns than can be tried", QByteArray("Disallow: /*b\n").repeated(35'000), false);
    row("a rule cut off by the limit", "Disallow:" + QByteArray(RobotsTxt::longest - 30, ' ') + "/aaaaaaaaaab\n", true);
    row("a rule behind the limit", QByteArray(RobotsTxt::longest, '\n') + "Disallow: /\n", true);
    row("NUL", QByteArray("Disallow: /\0a\n", 14), true);
}

void tst_RobotsTxt::bearsHostileFiles()
{
    QFETCH(QByteArray, rules);
    const QByteArray file = "User-agent: *\n" + rules;
    QTEST(RobotsTxt::parse(file, "Tarnwick").allows(QByteArray(8192, 'a').replace(0, 1, "/")), "allows");
}

QTEST_GUILESS_MAIN(tst_RobotsTxt)
#include "tst_RobotsTxt.moc"
