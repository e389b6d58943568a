// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/ListReader.h"
#include "results/SearchFile.h"
#include "results/SearchFileReader.h"
#include "results/SearchFileWriter.h"
#include "support/FileSizeLimit.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using searchFile::LoadError;

class tst_SearchFile : public QObject {
    Q_OBJECT

private slots:
    void comesBackByteForByte();
    void readsItemLines_data();
    void readsItemLines();
    void tellsWhatIsWrong_data();
    void tellsWhatIsWrong();
    void passesOverUnknownLines();
    void cutAnywhereKeepsWhatIsWhole();
    void foreignFilesAreGivenUp();
    void longestAnswersComeBack();
    void failedSaveLeavesOldFile();
    void fullDiskLeavesOldFile();
    void leavesPipesAlone();

private:
    [[nodiscard]] QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

namespace {

FundStück someItem(const QByteArray& url)
{
    FundStück item;
    item.adresse = url;
    item.mimeTyp = "text/html; charset=\xe4";
    item.groesse = -1;
    item.tiefe = 3;
    item.zustand = FetchState::ReadingPage;
    item.statusCode = 200;
    item.referenzTyp = ReferenceType::Frame;
    item.sprache = "de";
    item.referer = "http://h:80/";
    return item;
}

} // namespace

void tst_SearchFile::comesBackByteForByte()
{
    SearchOptions options;
    options.startUrl = "http://h/a=b\r\nSub=x";
    options.maxDepth = false;
    options.tiefe = 7;
    options.followSub = FollowMode::Outside;
    options.unterpfade = { SubUrl::fromText("h/a/"), SubUrl::fromText("example.org") };
    options.analysis = { false, true, true, false, true, true };
    const RequestPrefs prefs { true, false, false, "a = b", true, { "de German", "en English" }, {}, false, true };
    FundListe list;
    list.add(someItem("http://h:80/\xfc"));
    list.add({});
    list.getLetzter()->inhalt.adresse = "mailto://mailto:0/";
    list.add(someItem("http://h:80/b"));
    list.getLetzter()->inhalt.groesse = 5'000'000'000;

    QCOMPARE(searchFile::save(file("a.twk"), options, prefs, list), std::nullopt);
    const QByteArray content = contentOf(file("a.twk"));
    QCOMPARE(content,
        "StartUrl=http://h/a=b%0D%0ASub=x\r\nMaxDepth=0\r\nDepth=7\r\nFollowSub=2\r\nSub=http://h:80/a/\r\n"
        "Sub=http://example.org\r\nAnalyseAnchors=0\r\nAnalyseLink=1\r\nAnalyseAllSrc=1\r\nAnalyseFrames=0\r\n"
        "AnalyseEPic=1\r\nAnalyseForms=1\r\nReferrer=0\r\nUseUserAgent=0\r\nUserAgent=a = b\r\nUseLanguage=1\r\n"
        "Language=de German\r\nLanguage=en English\r\nuseCookies=1\r\nsetCookies=0\r\n"
        "dontWarnAboutCookiesAgain=1\r\nResults:\r\n"
        "http://h:80/\xfc\ttext/html; charset=\xe4\t-1\t3\t3\t200\t4\tde\thttp://h:80/\r\n"
        "mailto://mailto:0/\t\t0\t0\t0\t0\t0\t\t\r\n"
        "http://h:80/b\ttext/html; charset=\xe4\t5000000000\t3\t3\t200\t4\tde\thttp://h:80/\r\n");

    StoredSearch search;
    const searchFile::LoadResult result = searchFile::load(file("a.twk"), search);
    QCOMPARE(result.error, LoadError::None);
    QVERIFY(result.skipped.isEmpty());
    QCOMPARE(search.prefs.languageHeader, "de;q=1, en;q=0.5");
    QCOMPARE(searchFile::save(file("b.twk"), search.options, search.prefs, search.list), std::nullopt);
    QCOMPARE(contentOf(file("b.twk")), content);
}

void tst_SearchFile::readsItemLines_data()
{
    const auto row = table<QByteArray, QByteArray>("line", "written");
    row("all fields", "u\tm\t1\t2\t3\t4\t5\tl\tr", "u\tm\t1\t2\t3\t4\t5\tl\tr");
    row("the URL alone", "u", "u\t\t0\t0\t0\t0\t0\t\t");
    row("more than nine", "u\tm\t1\t2\t3\t4\t5\tl\tr\tx\ty", "u\tm\t1\t2\t3\t4\t5\tl\tr");
    row("numbers that are none", "u\tm\tx\t\t-\t1.5\t 7z\tl\tr", "u\tm\t0\t0\t0\t2\t7\tl\tr");
    row("numbers out of range", "u\tm\t9223372036854775808\t2147483648\t-2147483649\t2147483647",
        "u\tm\t0\t0\t0\t2147483647\t0\t\t");
    row("kinds and states unheard of", "u\tm\t1\t2\t99\t4\t-77\tl\tr", "u\tm\t1\t2\t99\t4\t-77\tl\tr");
    row("no URL", "\tm\t1", "");
}

void tst_SearchFile::readsItemLines()
{
    QFETCH(QByteArray, line);
    const auto item = searchFile::itemFrom(line);
    QTEST(item ? searchFile::itemLine(*item) : QByteArray(), "written");
}

void tst_SearchFile::tellsWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("items");
    const auto row = [](const char* title, const QByteArray& content, LoadError error, int items) {
        QTest::newRow(title) << content << static_cast<int>(error) << items;
    };
    row("parameters but no results", "StartUrl=http://h/\r\n", LoadError::None, 0);
    row("results but no parameters", "Results:\r\nu\r\n", LoadError::None, 1);
    row("plain line feeds", "StartUrl=x\nResults:\nu\nv\n", LoadError::None, 2);
    row("the mark of UTF-8",
        "\xef\xbb\xbf"
        "Results:\r\nu\r\n",
        LoadError::None, 1);
    row("empty", "", LoadError::NotASearchFile, 0);
    row("a picture", QByteArrayLiteral("\x89PNG\r\n\x1a\n\0\0=\0\n"), LoadError::NotASearchFile, 0);
}

void tst_SearchFile::tellsWhatIsWrong()
{
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(file("x.twk"), content));
    StoredSearch search;
    QTEST(static_cast<int>(searchFile::load(file("x.twk"), search).error), "error");
    QTEST(int { search.list.getAnzahl() }, "items");

    StoredSearch none;
    QCOMPARE(searchFile::load(file("missing.twk"), none).error, LoadError::CannotOpen);
    QCOMPARE(searchFile::load(m_folder.path(), none).error, LoadError::CannotOpen);
}

void tst_SearchFile::passesOverUnknownLines()
{
    QVERIFY(writeFile(
        file("x.twk"), "startUrl=a\r\nnonsense\r\nDepth=7\r\nReferrer=0\r\nResults:\r\nDepth=9\r\n\tm\r\nu\r\n"));
    StoredSearch search;
    const searchFile::LoadResult result = searchFile::load(file("x.twk"), search);
    QCOMPARE(result.error, LoadError::None);
    QCOMPARE(result.skipped.size(), 3);
    QCOMPARE(result.skipped[0].why, searchFile::SkippedLine::UnknownKey);
    QCOMPARE(result.skipped[0].text, "startUrl");
    QCOMPARE(result.skipped[1].why, searchFile::SkippedLine::NoKey);
    QCOMPARE(result.skipped[1].number, 2);
    QCOMPARE(result.skipped[2].why, searchFile::SkippedLine::NoUrl);
    QCOMPARE(result.skipped[2].number, 7);
    QCOMPARE(search.options.tiefe, 7);
    QVERIFY(!search.prefs.useReferrer);
    QCOMPARE(urlsOf(search.list), (QByteArrayList { "Depth=9", "u" }));
}

void tst_SearchFile::cutAnywhereKeepsWhatIsWhole()
{
    FundListe list;
    for (const char* url : { "http://h:80/a", "http://h:80/b", "http://h:80/c" })
        list.add(someItem(url));
    QCOMPARE(searchFile::save(file("whole.twk"), {}, {}, list), std::nullopt);
    const QByteArray whole = contentOf(file("whole.twk"));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const QByteArray cut = whole.first(length);
        QVERIFY(writeFile(file("cut.twk"), cut));
        StoredSearch search;
        const LoadError error = searchFile::load(file("cut.twk"), search).error;
        QCOMPARE(error == LoadError::None, cut.endsWith('\n'));
        QCOMPARE(search.list.getAnzahl(), qMax<qsizetype>(0, cut.count('\n') - whole.count('\n') + 3));
    }
}

void tst_SearchFile::foreignFilesAreGivenUp()
{
    // Neither an endless line nor endless lines are read to their end.
    StoredSearch search;
    QVERIFY(writeFile(file("f.twk"), QByteArray(3'000'000, 'x')));
    QCOMPARE(searchFile::load(file("f.twk"), search).error, LoadError::NotASearchFile);
    QVERIFY(writeFile(file("f.twk"), QByteArray("nothing known\r\n").repeated(20'000) + "Results:\r\n"));
    QCOMPARE(searchFile::load(file("f.twk"), search).error, LoadError::NotASearchFile);
    QVERIFY(writeFile(file("f.twk"), "Depth=1\r\n" + QByteArray(QByteArray(1000, 'y') + "\r\n").repeated(20'000)));
    const searchFile::LoadResult result = searchFile::load(file("f.twk"), search);
    QCOMPARE(result.error, LoadError::None);
    QCOMPARE(result.skippedCount, 20'000);
    QCOMPARE(result.skipped.size(), 100);
    QVERIFY(result.skipped.first().text.size() < 1000);
    QVERIFY(!searchFile::itemFrom(QByteArray("http://h/" + QByteArray(1'000'000, 'u'))));
}

void tst_SearchFile::longestAnswersComeBack()
{
    FundListe list;
    FundStück item = someItem("http://h:80/" + QByteArray(8000, '\0'));
    // Each of the two may be as long as a whole header.
    item.mimeTyp = item.sprache = QByteArray(256 * 1024, '\t');
    item.referer = item.adresse;
    list.add(item);
    list.add(someItem("http://h:80/next"));
    QCOMPARE(searchFile::save(file("long.twk"), {}, {}, list), std::nullopt);
    StoredSearch search;
    QCOMPARE(searchFile::load(file("long.twk"), search).error, searchFile::LoadError::None);
    QCOMPARE(search.list.getAnzahl(), 2);
}

void tst_SearchFile::failedSaveLeavesOldFile()
{
    const FundListe list;
    QVERIFY(searchFile::save(file("no/such/folder.twk"), {}, {}, list).has_value());
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("folder.twk")));
    QVERIFY(searchFile::save(file("folder.twk"), {}, {}, list).has_value());
    QVERIFY(QFileInfo(file("folder.twk")).isDir());
}

void tst_SearchFile::fullDiskLeavesOldFile()
{
#ifdef Q_OS_UNIX
    QVERIFY(writeFile(file("a.twk"), "old"));
    FundListe list;
    list.add(someItem(QByteArray(60'000, 'x')));
    // The system writes a part of the last line and reports no error until it is asked to write more.
    for (const qint64 limited : { 50'000, 100 }) {
        std::optional<FileError> error;
        {
            const FileSizeLimit limit(limited);
            error = searchFile::save(file("a.twk"), {}, {}, list);
        }
        QVERIFY(error.has_value());
        QVERIFY2(!error->systemText.contains(QLatin1String("cancel")), qPrintable(error->systemText));
        QCOMPARE(contentOf(file("a.twk")), "old");
    }
#else
    QSKIP("Only Unix can limit the size of files for a test.");
#endif
}

void tst_SearchFile::leavesPipesAlone()
{
#ifdef Q_OS_UNIX
    const QString pipe = file("pipe");
    QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    StoredSearch search;
    QCOMPARE(searchFile::load(pipe, search).reason.kind, FileError::NotAFile);
    QCOMPARE(ListReader(pipe, listFormat::Format::Urls).error()->kind, FileError::NotAFile);
    QCOMPARE(searchFile::save(pipe, {}, {}, search.list)->kind, FileError::NotAFile);
    QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
#else
    QSKIP("Only Unix keeps pipes in folders.");
#endif
}

QTEST_GUILESS_MAIN(tst_SearchFile)
#include "tst_SearchFile.moc"
