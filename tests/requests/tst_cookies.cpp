// SPDX-License-Identifier: GPL-3.0-or-later
#include "requests/CookieStore.h"
#include "support/Table.h"
#include "support/Text.h"

#include <QDateTime>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

class tst_cookies : public QObject {
    Q_OBJECT

private slots:
    void init();
    void takesSetCookie_data();
    void takesSetCookie();
    void replacesByName();
    void sendsWherePathMatches_data();
    void sendsWherePathMatches();
    void readsBroadDomainsFirst();
    void survivesDamagedFile();
    void boundsWhatAHostCanPile();
    void keepsFilesFromOthers();
    void passesOverWhatIsNoFile();
    void programsShareAFolder();
    void waitsForNoLock();
    void tellsOnceThatNothingCanBeStored();
    void leavesAFileThatWouldNotChange();

private:
    /// The cookies of the host "h".
    [[nodiscard]] QString file() const { return m_folder->filePath(QStringLiteral("h.tkc")); }
    [[nodiscard]] QByteArray stored() const { return contentOf(file()); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CookieStore> m_store;
};

void tst_cookies::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_store = std::make_unique<CookieStore>();
    m_store->setCookieFolder(m_folder->path());
}

void tst_cookies::takesSetCookie_data()
{
    const auto row = table<QByteArray, QByteArray>("value", "line");
    row("path behind", "a=1; path=/", "/\ta\t1\r\n");
    row("path in the middle", "a=1; expires=Thu; path=/x/; secure", "/x/\ta\t1\r\n");
    row("capital attribute", "a=1; PATH=/", "/\ta\t1\r\n");
    row("quotes", "a=\"1 2\"; path=\"/\"", "/\ta\t1 2\r\n");
    row("a quote that nothing closes loses its last byte", "a=\"12; path=/", "/\ta\t1\r\n");
    row("no attribute at all", "a=1", "");
    row("the first sign behind the name ends nothing", "a; path=/", "");
    row("no path: the text from the fifth byte", "SID=abc; x", "abc\tSID\tabc\r\n");
    row("a short one without path", "a=1;", "\ta\t1\r\n");
    row("an empty value", "a=; path=/", "");
    row("a lone quote", "a=\"; path=/", "");
    row("the name is not trimmed", " a =1; path=/", "/\t a \t1\r\n");
    row("empty", "", "");
}

void tst_cookies::takesSetCookie()
{
    QFETCH(QByteArray, value);
    m_store->takeSetCookies({ value }, "h");
    QTEST(stored(), "line");
}

void tst_cookies::replacesByName()
{
    m_store->takeSetCookies({ "a=1; path=/" }, "h");
    m_store->takeSetCookies({ "b=2; path=/" }, "h");
    QCOMPARE(m_store->getCookieHeader("http://h/"), "Cookie: a=1; b=2\r\n");
    m_store->takeSetCookies({ "a=3; path=/x/" }, "h");
    QCOMPARE(stored(), "/\tb\t2\r\n/x/\ta\t3\r\n");
    m_store->takeSetCookies({ "b=; path=/" }, "h");
    QCOMPARE(stored(), "/x/\ta\t3\r\n");
    m_store->takeSetCookies({ "a=; path=/" }, "h");
    QVERIFY(QFile::exists(file()));
    QCOMPARE(stored(), "");
}

void tst_cookies::sendsWherePathMatches_data()
{
    const auto row = table<QByteArray, QByteArray, bool>("path", "url", "sent");
    row("the root matches every path", "/", "http://h/a/b/c.html", true);
    row("a directory below", "/shop/", "http://h:8080/shop/a/", true);
    row("a file of the name", "/shop/", "http://h/shop", false);
    row("no slash at the end", "/shop", "http://h/shop/x.html", false);
    row("another directory", "/shop/", "http://h/shed/", false);
    row("deeper than the request", "/a/b/", "http://h/a/", false);
    row("no path", {}, "http://h/", false);
}

void tst_cookies::sendsWherePathMatches()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, url);
    QFETCH(bool, sent);
    QVERIFY(m_store->saveCookie("h", path, "a", "1"));
    QCOMPARE(m_store->getCookieHeader(url), sent ? QByteArray("Cookie: a=1\r\n") : QByteArray());
}

void tst_cookies::readsBroadDomainsFirst()
{
    for (const char* host : { "a.b.c", "c", "b.c", "x.b.c" })
        m_store->saveCookie(host, "/", "n", host);
    QCOMPARE(m_store->getCookieHeader("http://a.b.c/"), "Cookie: n=c; n=b.c; n=a.b.c\r\n");
}

void tst_cookies::survivesDamagedFile()
{
    const QByteArray tooLong = "/\td\t" + QByteArray(100'000, 'd') + "\r\n";
    QVERIFY(writeFile(file(), tooLong + "garbage\r\n/\tonly\r\n/\ta\t1\n\r\n/\tb\t2\rX: 1\r\n/\tc\t3"));
    QCOMPARE(m_store->getCookieHeader("http://h/"), "Cookie: a=1; c=3\r\n");
    m_store->saveCookie("h", "/", "a", "4");
    QVERIFY(!m_store->saveCookie("h", "/", "e", QByteArray(65'536, 'e')));
    QCOMPARE(stored(), tooLong + "garbage\r\n/\tonly\r\n\r\n/\tb\t2\rX: 1\r\n/\tc\t3\r\n/\ta\t4\r\n");
}

void tst_cookies::boundsWhatAHostCanPile()
{
    QByteArrayList values;
    for (int number = 0; number < 300; ++number)
        values += 'c' + QByteArray::number(number) + "=1; path=/";
    m_store->takeSetCookies(values, "h");
    QCOMPARE(stored().count('\n'), 200);
    m_store->takeSetCookies({ "c299=2; path=/" }, "h");
    QVERIFY(stored().startsWith("/\tc100\t1\r\n"));
    // Name, value and path together have 4096 bytes, and one byte more.
    const QByteArray value(4091, 'x');
    m_store->takeSetCookies({ "fits=" + value + "; path=/", "large=" + value + "; path=/" }, "h");
    QCOMPARE(stored().count('\n'), 200);
    QVERIFY(stored().startsWith("/\tc101\t1\r\n"));
    QVERIFY(stored().endsWith(QByteArray("/\tc299\t2\r\n/\tfits\t" + value + "\r\n")));
}

void tst_cookies::keepsFilesFromOthers()
{
#ifdef Q_OS_UNIX
    QVERIFY(writeFile(file(), {}));
    m_store->takeSetCookies({ "a=1; path=/" }, "h");
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(file()) & others));

    // The names of the files tell the hosts. Only folders that are new or the program's own are changed.
    const auto isClosed = [&](const QString& folder) {
        m_store->setCookieFolder(folder);
        return !(QFile::permissions(folder) & (others | QFile::ExeGroup | QFile::ExeOther));
    };
    const QTemporaryDir data;
    qputenv("TARNWICK_DATA", data.path().toLocal8Bit());
    QVERIFY(
        QDir(data.path()).mkpath(QStringLiteral("Cookies")) && QDir(m_folder->path()).mkpath(QStringLiteral("old")));
    QVERIFY(isClosed(data.filePath(QStringLiteral("Cookies"))));
    QVERIFY(isClosed(m_folder->filePath(QStringLiteral("new/one"))));
    QVERIFY(!isClosed(m_folder->filePath(QStringLiteral("old"))));
#else
    QSKIP("What others may do with a file is not among its own marks on Windows.");
#endif
}

/// Opening a pipe would wait for a writer.
void tst_cookies::passesOverWhatIsNoFile()
{
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(file()).constData(), 0600), 0);
    QCOMPARE(m_store->getCookieHeader("http://h/"), "");
    QVERIFY(!m_store->saveCookie("h", "/", "a", "1"));
    QVERIFY(!QFileInfo(file()).isFile());
    QVERIFY(m_store->saveCookie("i", "/", "a", "1"));
#else
    QSKIP("There are no named pipes in folders.");
#endif
}

void tst_cookies::programsShareAFolder()
{
#ifdef Q_OS_UNIX
    constexpr int each = 60;
    QList<pid_t> programs;
    for (const char* name : { "a", "b", "c" }) {
        programs += fork();
        if (programs.last() != 0)
            continue;
        for (int number = 0; number < each; ++number)
            m_store->takeSetCookies({ name + QByteArray::number(number) + "=1; path=/" }, "h");
        m_store->finish();
        _exit(0);
    }
    for (const pid_t program : programs)
        waitpid(program, nullptr, 0);
    QCOMPARE(stored().count('\n'), programs.size() * each);
#else
    QSKIP("The test starts its programs by fork.");
#endif
}

/// A program that is stopped while it has the lock must not stop this one.
void tst_cookies::waitsForNoLock()
{
#ifdef Q_OS_UNIX
    const int folder = open(QFile::encodeName(m_folder->path()).constData(), O_RDONLY);
    QCOMPARE(flock(folder, LOCK_EX), 0);
    for (const char* value : { "a=1; path=/", "b=2; path=/", "a=3; path=/" })
        m_store->takeSetCookies({ value }, "h");
    QCOMPARE(stored(), "");
    QCOMPARE(m_store->getCookieHeader("http://h/"), "Cookie: b=2; a=3\r\n");
    close(folder);
    QTRY_COMPARE(stored(), "/\tb\t2\r\n/\ta\t3\r\n");

    const int again = open(QFile::encodeName(m_folder->path()).constData(), O_RDONLY);
    QCOMPARE(flock(again, LOCK_EX), 0);
    m_store->takeSetCookies({ "c=4; path=/" }, "h");
    QTRY_VERIFY(stored().endsWith("/\tc\t4\r\n")); // after a second, without the lock
    m_store->takeSetCookies({ "d=5; path=/" }, "h");
    QVERIFY(m_store->saveCookie("h", "/", "e", "6"));
    QVERIFY(stored().endsWith("/\td\t5\r\n/\te\t6\r\n"));
    close(again);
#else
    QSKIP("The lock is taken by a system call.");
#endif
}

void tst_cookies::tellsOnceThatNothingCanBeStored()
{
    m_store->setCookieFolder(m_folder->filePath(QStringLiteral("file")));
    QVERIFY(QDir(m_store->folder()).removeRecursively() && writeFile(m_folder->filePath(QStringLiteral("file")), {}));
    const QSignalSpy told(m_store.get(), &CookieStore::notStored);
    m_store->takeSetCookies({ "no cookie" }, "h");
    m_store->takeSetCookies({ "a=1; path=/" }, QByteArray(300, 'h'));
    QCOMPARE(told.count(), 0);
    for (const char* host : { "h", "i", "j" }) {
        m_store->takeSetCookies({ "a=1; path=/" }, host);
        QCOMPARE(told.count(), 1);
    }
}

void tst_cookies::leavesAFileThatWouldNotChange()
{
    m_store->takeSetCookies({ "a=1; path=/", "b=2; path=/" }, "h");
    const auto writtenAnewBy = [this](const QByteArray& value) {
        const QDateTime past = QDateTime::fromSecsSinceEpoch(1'000'000'000);
        QFile written(file());
        const bool dated = written.open(QIODevice::ReadWrite) && written.setFileTime(past, QFile::FileModificationTime);
        written.close();
        m_store->takeSetCookies({ value }, "h");
        return dated && QFileInfo(written).lastModified() != past;
    };
    QVERIFY(!writtenAnewBy("b=2; path=/"));
    QVERIFY(!writtenAnewBy("c=; path=/"));
    QVERIFY(writtenAnewBy("a=1; path=/")); // The cookie moves to the end.
    QVERIFY(writtenAnewBy("a=2; path=/"));
}

QTEST_GUILESS_MAIN(tst_cookies)
#include "tst_cookies.moc"
