// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/HtmlAnalysis.h"

#include <QTest>

/// What is found on a page, each rule by an example (the independent walk judges all of them together), and that it
/// takes few steps, which can be short.
class tst_HtmlAnalysis : public QObject {
    Q_OBJECT

private slots:
    void findsReferences_data();
    void findsReferences();
    void looksAtEachByteAFewTimes_data();
    void looksAtEachByteAFewTimes();
    void pausesAmongTagsThatWereKept();
};

namespace {

const QByteArray pageUrl = "http://h:80/d/p.html";
constexpr AnalysisSwitches everything { true, true, false, true, true, true };
constexpr AnalysisSwitches anySrc { true, true, true, true, true, true };
constexpr AnalysisSwitches nothing { false, false, false, false, false, false };

struct Outcome {
    /// "type URL" of each reference.
    QByteArrayList references;
    qsizetype pauses = 0;
};

Outcome analyse(const QByteArray& body, const AnalysisSwitches& switches)
{
    HtmlAnalysis analysis(BodyBuffer(body), pageUrl, switches);
    Outcome outcome;
    for (;;) {
        switch (analysis.next()) {
        case HtmlAnalysis::Step::Reference: {
            const PageReference& found = analysis.reference();
            outcome.references += QByteArray::number(static_cast<int>(found.type)) + ' ' + found.url;
            break;
        }
        case HtmlAnalysis::Step::Pause:
            ++outcome.pauses;
            break;
        case HtmlAnalysis::Step::End:
            return outcome;
        }
    }
}

} // namespace

void tst_HtmlAnalysis::findsReferences_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<AnalysisSwitches>("switches");
    QTest::addColumn<QByteArrayList>("references");
    const auto row = [](const char* title, const char* body, const QByteArrayList& references,
                         const AnalysisSwitches& switches = everything) {
        QTest::newRow(title) << QByteArray(body) << switches << references;
    };
    const QByteArrayList none;
    const QByteArrayList x { "1 http://h:80/d/x" };
    row("double quotes", "<a href=\"x\">", x);
    row("single quotes and capitals", "<A HREF='x'>", x);
    row("no quotes", "<a href=x>", none);
    row("an attribute in front, blanks around the sign", "<a class=\"c\" href = \"x\">", x);
    row("a TAB before the sign", "<a href\t=\"x\">", none);
    row("a bracket in the value", "<a href=\"x>y\">", none);
    row("no blank behind the name", "<ahref=\"x\">", none);
    row("two blanks", "<a  href=\"x\">", x);
    row("the tag never ends", "<a href=\"x\"", none);
    row("the quote never closes", "<a href=\"x>", none);
    row("the attribute of the next tag", "<a name=\"n\"><a href=\"x\">", x);
    row("tags that share a value", "<a <a href=\"x\">", x);
    row("an attribute that begins alike", "<a hreflang=\"de\" href=\"x\">", none);
    row("a form", "<form method=\"get\" action=\"post.cgi\">", { "1 http://h:80/d/post.cgi" });
    row("kinds in turn, not in the order of the page",
        "<img src='i'><form action='f'><frame src='r'><link href='l'><a href='x'>",
        x + QByteArrayList { "2 http://h:80/d/l", "4 http://h:80/d/r", "5 http://h:80/d/i", "1 http://h:80/d/f" });
    row("any src takes the place of frames and images", "<img src='i'><script src=\"s\"></script><frame src='r'>",
        { "3 http://h:80/d/i", "3 http://h:80/d/s", "3 http://h:80/d/r" }, anySrc);
    row("any src in a page that ends in a bracket", "<img src='i'><", { "3 http://h:80/d/i" }, anySrc);
    row("nothing is looked for", "<a href='x'><img src='i'>", none, nothing);
    row("no attribute, but a value where it would stand", "abcd='x'<a b>", x);
    row("the same, with the tag's end too early", "ab>d='x'<a b>", x);
}

void tst_HtmlAnalysis::findsReferences()
{
    QFETCH(QByteArray, body);
    QFETCH(AnalysisSwitches, switches);
    QTEST(analyse(body, switches).references, "references");
}

void tst_HtmlAnalysis::looksAtEachByteAFewTimes_data()
{
    QTest::addColumn<QByteArray>("body");
    constexpr qsizetype size = 1024 * 1024;
    const QByteArray tags = QByteArray("<a ").repeated(size / 6);
    QTest::newRow("brackets with a src at the end") << QByteArray(size, '<') + " src";
    QTest::newRow("brackets with a src and an end at the end") << QByteArray(size, '<') + " src='x'>";
    QTest::newRow("tags without attribute and end") << tags;
    QTest::newRow("tags that share one far attribute") << tags + " href='x'>";
    QTest::newRow("tags that share one open quote") << tags + " href='" + QByteArray(size / 2, 'x') + '>';
    QTest::newRow("tags that share one run of blanks") << tags + " href" + QByteArray(size / 2, ' ') + ">";
    QTest::newRow("tags without attribute behind a run of blanks")
        << QByteArray("abcd") + QByteArray(size / 2, ' ') + QByteArray("<a >").repeated(size / 8);
    QTest::newRow("attributes only") << QByteArray(" href=\"").repeated(size / 7) + "<a >";
    QTest::newRow("quotes only") << QByteArray("<a href=\"' >").repeated(size / 12);
}

void tst_HtmlAnalysis::looksAtEachByteAFewTimes()
{
    // The number of steps without a result measures how much was scanned. Five passes search for tags, and in a few
    // rows the other searches scan the page as well. A search that scanned bytes again for each of these hundred
    // thousands of tags would take thousands of times as many steps.
    QFETCH(QByteArray, body);
    for (const AnalysisSwitches& switches : { everything, anySrc }) {
        const Outcome outcome = analyse(body, switches);
        QVERIFY(outcome.pauses > 0);
        QVERIFY(outcome.pauses <= 8 * (body.size() / HtmlAnalysis::bytesPerStep + 1));
    }
}

void tst_HtmlAnalysis::pausesAmongTagsThatWereKept()
{
    // The tags of the second kind are found while the first kind is searched. With steps of a tag's length, the
    // analysis first finds them all, then the end of all tags, and then gives each in a step of its own.
    constexpr int tags = 2000;
    const QByteArray tag = "<link ";
    const QByteArray body = tag.repeated(tags) + '>';
    HtmlAnalysis analysis(BodyBuffer(body), pageUrl, { true, true, false, false, false, false });
    int pauses = 0;
    while (analysis.next(tag.size()) != HtmlAnalysis::Step::End)
        ++pauses;
    QVERIFY2(pauses > 7 * tags / 2, qPrintable(QString::number(pauses)));
}

QTEST_GUILESS_MAIN(tst_HtmlAnalysis)
#include "tst_HtmlAnalysis.moc"
