// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include <QBuffer>
#include <QTest>

class tst_LineReader : public QObject {
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
};

void tst_LineReader::readsLines_data()
{
    QTest::addColumn<QByteArray>("content");
    // "!" stands behind a line without an end; "+" joins the pieces of one line.
    QTest::addColumn<QByteArrayList>("lines");
    const auto row = [](const char* name, const QByteArray& content, const QByteArrayList& lines) {
        QTest::newRow(name) << content << lines;
    };
    row("nothing", "", {});
    row("both line ends, and empty lines", "a\r\nb\n\r\n\nc\n", { "a", "b", "", "", "c" });
    row("a return inside", "a\rb\r\r\n", { "a\rb\r" });
    row("no end", "a\nb", { "a", "b!" });
    row("a return at the end", "a\r", { "a\r!" });
    const QByteArray longest(10, 'x');
    row("of the longest length", longest + "\r\n" + longest + "\n", { longest, longest });
    row("longer, in pieces", longest + "yz\r\na\n", { longest + "!+", "+yz+", "a" });
    row("longer than two pieces, and no end", longest + longest + "y",
        { longest + "!+", '+' + longest + "!+", "+y!+" });
    // Line ends at the end of the buffer.
    const QByteArray short5 = QByteArray("abcde\r\n").repeated(100'000);
    row("more than a buffer holds", short5, QByteArrayList(100'000, "abcde"));
}

void tst_LineReader::readsLines()
{
    QFETCH(QByteArray, content);
    QBuffer file(&content);
    QVERIFY(file.open(QIODevice::ReadOnly));
    LineReader reader(file, 10);
    QByteArrayList lines;
    while (const auto line = reader.next())
        lines += (line->isRest ? "+" : "") + line->text.toByteArray() + (line->ended ? "" : "!")
            + (line->isPiece ? "+" : "");
    QTEST(lines, "lines");
}

QTEST_GUILESS_MAIN(tst_LineReader)
#include "tst_LineReader.moc"
