// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "results/ListFormat.h"
#include "results/ListReader.h"
#include "results/SearchFile.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QTemporaryDir>
#include <QTest>

using listFormat::Format;
Q_DECLARE_METATYPE(Format)

class tst_ListFormat : public QObject {
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
    void writesColumns();
    void roundTrips();
    void readsFiles_data();
    void readsFiles();

private:
    QTemporaryDir m_folder;
    LanguageTable m_language;
};

void tst_ListFormat::readsLines_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("url");
    const auto url = [](const char* name, const QByteArray& line, const char* expected) {
        QTest::newRow(name) << Format::Urls << line << QByteArray(expected);
    };
    url("blanks around it and in it", "  http://h/a b?c=d \t", "http://h/a b?c=d");
    url("no protocol", "www.example.org/x", "http://www.example.org/x");
    url("a port", "h:8080/x", "http://h:8080/x");
    url("a byte that would break the line", QByteArrayLiteral("http://h/a\0b"), "http://h/a%00b");
    url("a mail address", "mailto:a@example.org", "");
    url("a sentence", "see also the other list", "");
    url("no host", "http:///x", "");
    url("no protocol before its colon", "://h/", "");
    url("nothing", "", "");
    url("too long", "http://h/" + QByteArray(100'000, 'x'), "");
    const auto csv = [](const char* name, const char* line, const char* expected) {
        QTest::newRow(name) << Format::Csv << QByteArray(line) << QByteArray(expected);
    };
    csv("more columns", "x\ttext/html\t1\t2\t200\tanchor\tde\thttp://h/x\tmore", "http://h/x");
    csv("two columns", "x\thttp://h/x", "http://h/x");
    csv("the URL alone", "http://h/x", "http://h/x");
    csv("no URL in its place", "x\ttext/html\t1\t2\t200\tanchor\tde\t", "");
}

void tst_ListFormat::readsLines()
{
    QFETCH(Format, format);
    QFETCH(QByteArray, line);
    const auto item = listFormat::itemFrom(format, line);
    QTEST(item ? item->adresse : QByteArray(), "url");
    if (item && line.count('\t') < 7)
        QVERIFY(item->tiefe == 0 && item->statusCode == 0 && item->zustand == FetchState::NotFetched);
}

void tst_ListFormat::writesColumns()
{
    FundStück item;
    item.adresse = "http://h:80/a/b.html?x";
    item.mimeTyp = "text/html";
    item.groesse = -1;
    item.tiefe = 2;
    item.statusCode = 404;
    item.referenzTyp = ReferenceType::AnySrc;
    item.sprache = "de\ten";
    QCOMPARE(listFormat::itemLine(Format::Urls, item), "http://h:80/a/b.html?x");
    QCOMPARE(listFormat::itemLine(Format::Csv, item),
        "b.html?x\ttext/html\t?\t2\t404\t? src\tde%09en\thttp://h:80/a/b.html?x");
    m_language.set("main.l_founds.ColumnHeaders(2)", QStringLiteral("=x"));
    const QByteArray header = listFormat::headerLine(Format::Csv, m_language);
    QCOMPARE(header.count('\t'), 7);
    QVERIFY(header.contains("\t'=x\t"));
    QVERIFY(listFormat::isHeaderLine(Format::Csv, header));
    QVERIFY(listFormat::headerLine(Format::Urls, m_language).isEmpty());
}

void tst_ListFormat::roundTrips()
{
    const QByteArray lines = "http://h:80/a\ttext/html\t5000000000\t1\t4\t200\t1\tde\t\n"
                             "http://h:80/b?x,=1\t=cmd\t-1\t2\t4\t404\t4\t+x\t\n"
                             "https://h:80/'@c\t\t0\t3\t0\t0\t0\t\t\n"
                             "ftp://h:80/'=\xff\t''=,;\" @\t-1\t0\t4\t200\t5\t-\t";
    for (const QByteArray& line : lines.split('\n')) {
        const FundStück item = *searchFile::itemFrom(line);
        const auto read = listFormat::itemFrom(Format::Csv, listFormat::itemLine(Format::Csv, item));
        QVERIFY(read);
        QCOMPARE(searchFile::itemLine(*read), line);
        QCOMPARE(listFormat::itemFrom(Format::Urls, listFormat::itemLine(Format::Urls, item))->adresse, item.adresse);
    }
}

void tst_ListFormat::readsFiles_data()
{
    const auto row = table<Format, QByteArray, int, QList<qint64>>("format", "content", "count", "unusable");
    row("URLs", Format::Urls, "http://h/\r\n\r\nmailto:x\nh/2", 2, { 3 });
    row("with the mark of UTF-8", Format::Urls, "\xef\xbb\xbfhttp://h/\n", 1, {});
    row("columns with their names", Format::Csv, "a\tb\tc\td\te\tf\tg\tUrl\r\n\t\t\t\t\t\t\thttp://h/\r\nx\n", 2, {});
    row("columns without names", Format::Csv, "http://h/\n\tjavascript:x\n", 1, { 2 });
    row("a line that is too long", Format::Urls, "h/1\nhttp://h/" + QByteArray(1'000'000, 'x') + "\nh/3\n", 2, { 2 });
    row("only rubbish", Format::Urls, QByteArray("mailto:\n").repeated(30), 0,
        { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20 });
}

void tst_ListFormat::readsFiles()
{
    QFETCH(Format, format);
    QFETCH(QByteArray, content);
    const QString name = m_folder.filePath(QStringLiteral("list"));
    QVERIFY(writeFile(name, content));
    ListReader reader(name, format);
    int count = 0;
    while (reader.readLine([&](const FundStück&) { ++count; })) { }
    QTEST(count, "count");
    QTEST(reader.unusable().first(), "unusable");
    QCOMPARE(reader.unusable().count(),
        qstrcmp(QTest::currentDataTag(), "only rubbish") == 0 ? 30 : reader.unusable().first().size());
    QVERIFY(!reader.error());
}

QTEST_GUILESS_MAIN(tst_ListFormat)
#include "tst_ListFormat.moc"
