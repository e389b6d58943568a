// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "requests/CookieImport.h"
#include "requests/ExplorerCookies.h"
#include "requests/FirefoxDatabase.h"
#include "requests/ImportReport.h"
#include "support/TestSeams.h"
#include "support/Text.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <sqlite3.h>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using Sql = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

class tst_CookieImport : public QObject {
    Q_OBJECT

private slots:
    void init();
    void readsCookiesTxt_data();
    void readsCookiesTxt();
    void leavesOutWhatWouldDoHarm_data();
    void leavesOutWhatWouldDoHarm();
    void countsWhatIsNeverSent();
    void prefersTheOrdinaryWindow();
    void namesTheFormatThatIsWanted();
    void readsFirefoxDatabases_data();
    void readsFirefoxDatabases();
    void readsTheLogOfARunningFirefox();
    void tellsWhatADatabaseLacks_data();
    void tellsWhatADatabaseLacks();
    void keepsWhatCameBeforeADamage();
    void storesInPartsWhatIsMuch();
    void readsInternetExplorer();
    void goesOnAfterAFileThatCannotBeWritten();
    void tellsOfMissingFiles();

private:
    [[nodiscard]] QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    [[nodiscard]] QByteArray stored(const char* host) const { return contentOf(file(host) + QLatin1String(".tkc")); }
    using Taking = CookieImport::Taking;
    [[nodiscard]] Messages::Box imported(std::unique_ptr<CookieSource> source, Taking taking = Taking::Harmless);
    Sql database(const QByteArray& statements) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    LanguageTable m_language;
    CookieStore m_store;
};

namespace {

constexpr const char* cookieTable =
    "create table moz_cookies (id INTEGER PRIMARY KEY, originAttributes TEXT NOT NULL DEFAULT '', name TEXT, value "
    "TEXT, host TEXT, path TEXT, expiry INTEGER, lastAccessed INTEGER, creationTime INTEGER, isSecure INTEGER, "
    "isHttpOnly INTEGER, inBrowserElement INTEGER DEFAULT 0, sameSite INTEGER DEFAULT 0, schemeMap INTEGER DEFAULT 0, "
    "isPartitionedAttributeSet INTEGER DEFAULT 0, CONSTRAINT moz_uniqueid UNIQUE (name, host, path, "
    "originAttributes));";

} // namespace

void tst_CookieImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store.setCookieFolder(m_folder->path());
}

Messages::Box tst_CookieImport::imported(std::unique_ptr<CookieSource> source, Taking taking)
{
    CookieImport cookies(std::move(source), m_store, taking);
    while (cookies.step()) { }
    return importReport::box(cookies, m_language);
}

/// Makes a database in the folder and runs the statements.
Sql tst_CookieImport::database(const QByteArray& statements) const
{
    sqlite3* opened = nullptr;
    sqlite3_open(qPrintable(file("cookies.sqlite")), &opened);
    if (sqlite3_exec(opened, statements.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(opened));
    return { opened, &sqlite3_close };
}

void tst_CookieImport::readsCookiesTxt_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("count");
    QTest::addColumn<QByteArray>("unusable");
    const auto row = [](const char* title, const QByteArray& content, const QByteArray& lines, int count,
                         const QByteArray& unusable = {}) {
        QTest::newRow(title) << content << lines << count << unusable;
    };
    const QByteArray old = "/\told\t1\r\n";
    const QByteArray both = old + "/\ta\t1\r\n";
    row("of an old browser", "# HTTP Cookie File\n# x\n\n.h\tTRUE\t/\tFALSE\t99999999999\ta\t1\n", both, 1);
    row("with the line ends of Windows", "h\tFALSE\t/\tFALSE\t0\ta\t1\r\n", both, 1);
    row("without an end of the last line", "h\tFALSE\t/\tFALSE\t0\ta\t1", both, 1);
    row("only comments", "# Netscape HTTP Cookie File\n  # h\tFALSE\t/\tTRUE\t0\ta\t1\n", old, 0);
    row("a cookie that scripts cannot see", "#HttpOnly_.h\tTRUE\t/\tFALSE\t0\ta\t1\n", both, 1);
    row("the last of one name", "h\tx\t/\tx\t0\ta\t1\nh\tx\t/\tx\t0\tb\t2\nh\tx\t/x/\tx\t0\ta\t3\n",
        old + "/\tb\t2\r\n/x/\ta\t3\r\n", 3);
    row("too few fields", "h\tx\t/\tx\t0\ta\n\nh\tx\t/\tx\t0\ta\t1\nx\n", both, 1, "1, 4");
    row("too few fields of one that scripts cannot see", "#HttpOnly_h\tx\t/\nh\tx\t/\tx\t0\ta\t1\n", both, 1, "1");
    row("with the mark of UTF-8", "\xef\xbb\xbfh\tx\t/\tx\t0\ta\t1\n", both, 1);
    row("a line that is too long", "x\t" + QByteArray(100'000, 'x') + "\nh\tx\t/\tx\t0\ta\t1\nx\n", both, 1, "1, 3");
    row("an empty value deletes", "h\tx\t/\tx\t0\told\t\n", "", 1);
}

void tst_CookieImport::readsCookiesTxt()
{
    QFETCH(QByteArray, content);
    QFETCH(int, count);
    QFETCH(QByteArray, unusable);
    m_store.saveCookie("h", "/", "old", "1");
    QVERIFY(writeFile(file("cookies.txt"), content));
    const Messages::Box box = imported(CookieImport::sourceFor(file("cookies.txt")));
    const QString note = QDir::toNativeSeparators(file("cookies.txt"))
        + QStringLiteral("\nLines without a usable cookie: ") + QString::fromLatin1(unusable) + QStringLiteral("\n\n");
    QCOMPARE(box.text,
        (unusable.isEmpty() ? QString() : note) + QString::number(count) + QStringLiteral(" Cookies were set."));
    QCOMPARE(box.title, QStringLiteral("Note"));
    QTEST(stored("h"), "lines");
}

void tst_CookieImport::leavesOutWhatWouldDoHarm_data()
{
    // The same four cookies: an ordinary one, one for https, an expired one, and one that is expired and for https.
    QTest::addColumn<QByteArray>("content");
    const QByteArray line = "\tx\t/\t";
    QTest::newRow("cookies.txt") << QByteArray("h" + line + "false\t4000000000\ta\t1\nh" + line + "TRUE\t0\tb\t2\nh"
        + line + "FALSE\t1000000000\tc\t3\nh" + line + "TRUE\t1000000000\td\t4\n");
    const QByteArray rows =
        "insert into moz_cookies (host, path, name, value, isSecure, expiry) values ('h', '/', 'a', '1', 0, "
        "4000000000), ('h', '/', 'b', '2', 1, 0), ('h', '/', 'c', '3', 0, 1000000000), ('h', '/', 'd', '4', 1, "
        "1000000000);";
    QTest::newRow("Firefox") << cookieTable + rows;
    QTest::newRow("Firefox of today") << cookieTable + QByteArray(rows).replace("000000000", "000000000000");
}

void tst_CookieImport::leavesOutWhatWouldDoHarm()
{
    QFETCH(QByteArray, content);
    if (content.startsWith("create"))
        database(content);
    else
        QVERIFY(writeFile(file("cookies.sqlite"), content));
    const auto told = [this](Taking taking) {
        return imported(CookieImport::sourceFor(file("cookies.sqlite")), taking).text;
    };
    QCOMPARE(told(Taking::Harmless),
        QStringLiteral("1 Cookies were set.\nLeft out, because they are for https only: 1\nLeft out, because they have "
                       "expired: 2"));
    QCOMPARE(stored("h"), "/\ta\t1\r\n");
    QCOMPARE(told(Taking::All), QStringLiteral("4 Cookies were set."));
    QCOMPARE(stored("h"), "/\ta\t1\r\n/\tb\t2\r\n/\tc\t3\r\n/\td\t4\r\n");
}

void tst_CookieImport::countsWhatIsNeverSent()
{
    const QByteArray rest = "\tx\t0\t";
    QVERIFY(writeFile(file("cookies.txt"),
        "h\tx\t/" + rest + "a\t1\nh\tx\t/shop" + rest + "b\t2\ni\tx\t" + rest + "c\t3\nh\tx\t/x/" + rest + "d\t4\n"));
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.txt"))).text,
        QStringLiteral("4 Cookies were set.\nNever sent, because no request matches their path: 2"));
}

/// Firefox keeps a cookie once for each container and embedding site.
void tst_CookieImport::prefersTheOrdinaryWindow()
{
    database(QByteArray(cookieTable)
        + "insert into moz_cookies (host, path, name, value, originAttributes) values ('.h', '/', 'a', 'first', "
          "'^userContextId=1'), ('.h', '/', 'a', 'ordinary', ''), ('.h', '/', 'a', 'last', "
          "'^partitionKey=%28http%2Ci%29'), ('i', '/', 'a', 'alone', '^userContextId=1');");
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.sqlite"))).text, QStringLiteral("4 Cookies were set."));
    QCOMPARE(stored("h"), "/\ta\tordinary\r\n");
    QCOMPARE(stored("i"), "/\ta\talone\r\n");
}

void tst_CookieImport::namesTheFormatThatIsWanted()
{
    const auto told = [this](std::unique_ptr<CookieSource> source) {
        const QString failed = QStringLiteral("Error while importing cookies\n")
            + QDir::toNativeSeparators(file("cookies.sqlite")) + u'\n';
        return imported(std::move(source)).text.remove(failed);
    };
    for (const char* const json : { "\xef\xbb\xbf \n[\n\t{ \"name\": \"a\" }\n]", "{\n# x\n}" }) {
        QVERIFY(writeFile(file("cookies.sqlite"), json));
        QCOMPARE(told(CookieImport::sourceFor(file("cookies.sqlite"))), m_language.text("more.jsonCookies"));
    }
    QCOMPARE(told(std::make_unique<FirefoxDatabase>(file("cookies.sqlite"))), m_language.text("more.jsonCookies"));
    QVERIFY(QFile::remove(file("cookies.sqlite")));
    database("create table cookies (creation_utc integer, host_key text, name text, encrypted_value blob);");
    QCOMPARE(told(CookieImport::sourceFor(file("cookies.sqlite"))), m_language.text("more.chromiumCookies"));
}

void tst_CookieImport::readsFirefoxDatabases_data()
{
    QTest::addColumn<QByteArray>("statements");
    QTest::newRow("of today") << QByteArray("PRAGMA journal_mode=WAL;") + cookieTable;
    QTest::newRow("of version 3") << QByteArray("create table moz_cookies (id INTEGER PRIMARY KEY, name TEXT, value "
                                                "TEXT, host TEXT, path TEXT, expiry INTEGER, lastAccessed INTEGER, "
                                                "isSecure INTEGER, isHttpOnly INTEGER);");
    QTest::newRow("with two bytes a character") << QByteArray("PRAGMA encoding='UTF-16le';") + cookieTable;
}

void tst_CookieImport::readsFirefoxDatabases()
{
    QFETCH(QByteArray, statements);
    database(statements
        + "insert into moz_cookies (host, path, name, value) values ('.b.c', '/', 'a', '1'), ('b.c', '/x/', 'b', "
          "'\xc3\xa9'), ('h', '/', 'a', '3'), ('b.c', '/', 'a', '4'), (NULL, '/', 'a', '5');");
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.sqlite"))).text, QStringLiteral("4 Cookies were set."));
    QCOMPARE(stored("b.c"), "/x/\tb\t\xc3\xa9\r\n/\ta\t4\r\n");
    QCOMPARE(stored("h"), "/\ta\t3\r\n");
}

void tst_CookieImport::readsTheLogOfARunningFirefox()
{
    const Sql running = database(QByteArray("PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=WAL;") + cookieTable
        + "PRAGMA wal_checkpoint; insert into moz_cookies (host, path, name, value) values ('h', '/', 'a', '1');");
    QVERIFY(QFileInfo(file("cookies.sqlite-wal")).size() > 0);
    const QByteArray before = contentOf(file("cookies.sqlite"));
    QVERIFY(!before.contains("a1h/"));
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.sqlite"))).text, QStringLiteral("1 Cookies were set."));
    QCOMPARE(stored("h"), "/\ta\t1\r\n");
    QCOMPARE(contentOf(file("cookies.sqlite")), before);
}

void tst_CookieImport::tellsWhatADatabaseLacks_data()
{
    QTest::addColumn<QByteArray>("statements");
    QTest::newRow("another table") << QByteArray("create table other (x);");
    QTest::newRow("a table that never ends")
        << QByteArray("create view moz_cookies as with recursive n(host, path, name, value) as (select 'h', '/', "
                      "'a', '' union all select host, path, name, '' from n) select * from n;");
    QTest::newRow("a row that never comes")
        << QByteArray("create view moz_cookies as with recursive n(x) as (select 1 union all select x + 1 from n) "
                      "select x as host, x as path, x as name, x as value from n where x < 0;");
    QTest::newRow("a column that computes")
        << QByteArray("create table moz_cookies (host, path, name, value as (hex(zeroblob(1000000)))); insert into "
                      "moz_cookies values ('h', '/', 'a');");
    QTest::newRow("a text of endless length")
        << QByteArray("create view moz_cookies as select 'h' as host, '/' as path, 'a' as name, "
                      "hex(zeroblob(900000000)) as value;");
}

void tst_CookieImport::tellsWhatADatabaseLacks()
{
    QFETCH(QByteArray, statements);
    database(statements);
    const Messages::Box box = imported(CookieImport::sourceFor(file("cookies.sqlite")));
    QVERIFY2(box.text.startsWith(QLatin1String("SQLite: ")), qPrintable(box.text));
    QCOMPARE(box.title, QStringLiteral("Error"));
}

void tst_CookieImport::keepsWhatCameBeforeADamage()
{
    database(QByteArray(cookieTable)
        + "with recursive n(x) as (select 1 union all select x + 1 from n where x < 5000) insert into moz_cookies "
          "(host, path, name, value) select 'h', '/', 'n' || x, x from n;");
    QFile damaged(file("cookies.sqlite"));
    QVERIFY(damaged.open(QIODevice::ReadWrite));
    QVERIFY(damaged.seek(damaged.size() / 3));
    damaged.write(QByteArray(static_cast<int>(damaged.size() / 3), '\xff'));
    damaged.close();
    const Messages::Box box = imported(std::make_unique<FirefoxDatabase>(damaged.fileName()));
    QVERIFY2(box.text.startsWith(QLatin1String("SQLite: ")), qPrintable(box.text));
    const qsizetype count = stored("h").count('\n');
    QVERIFY(count > 0);
    QVERIFY(box.text.endsWith(QStringLiteral("\n%1 Cookies were set.").arg(count)));
}

void tst_CookieImport::storesInPartsWhatIsMuch()
{
    QByteArray content;
    for (int cookie = 0; cookie < 600; ++cookie)
        content += "h" + QByteArray::number(cookie % 3) + "\tx\t/\tx\t0\tn" + QByteArray::number(cookie / 6) + '\t'
            + QByteArray(60'000, cookie < 300 ? 'a' : 'b') + '\n';
    QVERIFY(writeFile(file("cookies.txt"), content));
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.txt"))).text, QStringLiteral("600 Cookies were set."));
    QCOMPARE(stored("h1").count('\n'), 100);
    QVERIFY(stored("h1").endsWith("bbb\r\n"));
}

void tst_CookieImport::readsInternetExplorer()
{
    FilledRegistry registry;
    const auto told = [&] {
        return imported(std::make_unique<ExplorerCookies>(registry)).text;
    };
    const QString failed = m_language.text("lang.errWhileImportCookies");
    QVERIFY(!ExplorerCookies::areHere(registry));
    QCOMPARE(told(), failed + u'\n' + m_language.text("more.noExplorer"));
    QString& folder = registry.values[QStringLiteral("Cookies")];
    QVERIFY(!ExplorerCookies::areHere(registry));
    folder = file("explorer");
    QVERIFY(ExplorerCookies::areHere(registry));
    QVERIFY(told().startsWith(failed));
    QVERIFY(QDir().mkpath(folder));
    QCOMPARE(told(), QStringLiteral("0 Cookies were set."));

    // No flags, and times in the year 2145.
    const QByteArray rest = "0\n1\n40000000\n3\n4\n*\n";
    QVERIFY(writeFile(folder + QLatin1String("/a.txt"),
        "a\n1\nb.c/dir/x\n" + rest + "b\n2\nb.c/\n" + rest + "c\n3\n" + QByteArray(100'000, 'x') + "\nd\n"));
    QVERIFY(writeFile(folder + QLatin1String("/b.txt"), "a\r\n4\r\nb.c/\r\n" + QByteArray(rest).replace('\n', "\r\n")));
    QVERIFY(writeFile(folder + QLatin1String("/index.dat"), "d\n5\nb.c/\n" + rest));
    const QString brokenOff = QDir::toNativeSeparators(folder + QStringLiteral("/a.txt"))
        + QStringLiteral("\nLines without a usable cookie: 19\n\n");
    QCOMPARE(told(), brokenOff + QStringLiteral("3 Cookies were set."));
    QCOMPARE(stored("b.c"), "/\tb\t2\r\n/\ta\t4\r\n");

    QVERIFY(QFile::remove(folder + QLatin1String("/a.txt")));
    QVERIFY(writeFile(folder + QLatin1String("/b.txt"),
        "e\n1\nb.c/\n8193\n1\n40000000\n3\n4\n*\nf\n1\nb.c/\n0\n1\n29000000\n3\n4\n*\ng\n1\nb.c/\n0\n0\n0\n0\n0\n*\n"));
    QCOMPARE(told(),
        QStringLiteral("1 Cookies were set.\nLeft out, because they are for https only: 1\nLeft out, because they have "
                       "expired: 1"));
}

void tst_CookieImport::goesOnAfterAFileThatCannotBeWritten()
{
    QVERIFY(QDir().mkpath(file("bad.tkc/x")));
    QVERIFY(writeFile(file("cookies.txt"), "bad\tx\t/\tx\t0\ta\t1\nh\tx\t/\tx\t0\ta\t1\n"));
    QCOMPARE(imported(CookieImport::sourceFor(file("cookies.txt"))).text,
        QStringLiteral("Error while importing cookies\nbad: File access Error\n\n1 Cookies were set."));
    QCOMPARE(stored("h"), "/\ta\t1\r\n");
}

void tst_CookieImport::tellsOfMissingFiles()
{
    QVERIFY(writeFile(file("empty"), ""));
    QCOMPARE(imported(CookieImport::sourceFor(file("empty"))).text, QStringLiteral("0 Cookies were set."));
    QVERIFY(writeFile(file("other"), QByteArray("A line without a cookie.\n").repeated(3)));
    QVERIFY(imported(CookieImport::sourceFor(file("other"))).text.endsWith(m_language.text("more.notCookies")));
    for (const char* name : { "none.txt", "." }) {
        const QString failed = QLatin1String("Error while importing cookies\n") + QDir::toNativeSeparators(file(name));
        QVERIFY(imported(CookieImport::sourceFor(file(name))).text.startsWith(failed));
        QVERIFY(imported(std::make_unique<FirefoxDatabase>(file(name))).text.startsWith(failed));
    }
#ifdef Q_OS_UNIX
    // Opening a pipe would wait for a writer.
    QCOMPARE(mkfifo(qPrintable(file("pipe")), 0600), 0);
    const QString refused = m_language.text("more.notAFile");
    QVERIFY(imported(CookieImport::sourceFor(file("pipe"))).text.endsWith(refused));
    QVERIFY(imported(std::make_unique<FirefoxDatabase>(file("pipe"))).text.endsWith(refused));
#endif
}

QTEST_GUILESS_MAIN(tst_CookieImport)
#include "tst_CookieImport.moc"
