// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "support/AttackFixture.h"
#include "support/Table.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// Attacks on files: names that would lead out of their folder, and what stands in the place of a file.
class tst_Paths : public AttackFixture {
    Q_OBJECT

private slots:
    void downloadsStayInTheirFolder_data();
    void downloadsStayInTheirFolder();
    void downloadsFollowNoLinks_data();
    void downloadsFollowNoLinks();
    void cookiesStayInTheirFolder_data();
    void cookiesStayInTheirFolder();
    void nothingInTheDataFolderStopsTheProgram_data();
    void nothingInTheDataFolderStopsTheProgram();
    void namedFilesDoNoHarm_data();
    void namedFilesDoNoHarm();
};

void tst_Paths::downloadsStayInTheirFolder_data()
{
    QTest::addColumn<QByteArray>("reference");
    QTest::addColumn<bool>("relocates");
    QTest::addColumn<NamingRules>("rules");
    QTest::addColumn<QByteArray>("file"); // "@" is the folder of the host and port; empty where none may be
    const auto row = [](const char* title, const QByteArray& reference, bool renames, const QByteArray& flat,
                         const QByteArray& deep) {
        const NamingRules inFolders { true, true, renames };
        QTest::newRow(title) << reference << false << NamingRules { false, true, renames } << flat;
        QTest::addRow("%s, in folders by the URL", title) << reference << false << inFolders << deep;
        if (!reference.contains('\n'))
            QTest::addRow("%s, after a relocation", title) << reference << true << inFolders << deep;
    };
    const QByteArray dots = "\xc0\xae\xc0\xae";
    row("up from the root", "/../../../f", true, "f", "");
    row("up from a folder", "/a/../../../f", true, "f", "");
    row("up from the page", "../../../f", true, "f", "@/f");
    row("the folder itself", "/./f", true, "f", "");
    row("a name that is up", "/a/..", true, "", "");
    row("a name that is the folder", "/a/.", true, "", "");
    row("no name", "/a/", false, "", "");
    row("encoded dots", "/%2e%2e/%2E%2E/f", true, "f", "@/%2e%2e/%2E%2E/f");
    row("encoded separators", "/..%2f..%5cf", true, "..%2f..%5cf", "@/..%2f..%5cf");
    row("overlong dots", '/' + dots + "/f", true, "f", "@/" + dots + "/f");
    row("overlong separators", '/' + dots + "\xc0\xaf_", true, dots + "\xc0\xaf_", "@/" + dots + "\xc0\xaf_");
    row("backslashes in the name", "/..\\..\\f", false, "", "");
    row("backslashes that are renamed", "/..\\..\\f", true, "..%5C..%5Cf", "@/..%5C..%5Cf");
    row("backslashes in a folder", "/a\\..\\..\\b/f", true, "f", "");
    row("NUL", QByteArrayLiteral("/a\0b"), true, "a%00b", "@/a%00b");
    row("a line end", "/a\r\nb", true, "a%0D%0Ab", "@/a%0D%0Ab");
    row("too long a name", '/' + QByteArray(300, 'n'), true, "", "");
    row("too long a folder", '/' + QByteArray(300, 'n') + "/f", true, "f", "");
#ifdef Q_OS_WIN
    row("a device", "/con", true, "", "");
    row("a device with an extension behind blanks", "/a/nul .txt", true, "", "");
    row("a device for a folder", "/aux/f", true, "f", "");
    row("another stream of a file", "/a:b", false, "", "");
    row("a folder of dots and a blank", "/a/.. /.. /f", true, "f", "");
    row("a name of dots and a blank", "/a/.. ", true, "", "");
#endif
}

void tst_Paths::downloadsStayInTheirFolder()
{
    QFETCH(QByteArray, reference);
    QFETCH(bool, relocates);
    QFETCH(NamingRules, rules);
    QFETCH(QByteArray, file);
    m_server->page("/", relocates ? QByteArray("<a href='r'>") : "<a href='" + reference + "'>");
    m_server->relocation("/r", reference);
    // The type is hostile too: it may give the extension.
    m_server->script(reference, { { okHeader("../../x;/../y") } });
    m_session->search.setFollowRelocation(false);
    downloads().naming = rules;
    downloads().overwrite = true;
    searchToEnd();
    download(1);
    if (relocates)
        downloadAgain();
    file.replace("@", QByteArray("1/0/0/127/" + QByteArray::number(m_server->serverPort())));
    QCOMPARE(downloaded(),
        file.isEmpty() ? QStringList() : QStringList(QString(QLatin1String("target/") + allgemein::fromSystem(file))));
}

void tst_Paths::downloadsFollowNoLinks_data()
{
    const auto row = table<QString, QString, bool>("link", "to", "dirByUrl");
    row("the file is a link", QStringLiteral("target/f"), QStringLiteral("there"), false);
    row("the file is a link to nothing", QStringLiteral("target/f"), QStringLiteral("nothing"), false);
    row("a folder is a link", QStringLiteral("target/1"), QStringLiteral("folder"), true);
}

void tst_Paths::downloadsFollowNoLinks()
{
#ifdef Q_OS_WIN
    QSKIP("Only an administrator makes links here.");
#endif
    QFETCH(QString, link);
    QFETCH(QString, to);
    QFETCH(bool, dirByUrl);
    QVERIFY(writeFile(file("1/2/3/4/there"), "mine") && QDir().mkpath(file("1/2/3/4/folder")));
    QVERIFY(QFile::link(file("1/2/3/4/") + to, file("1/2/3/4/") + link));
    m_server->page("/", "<a href='f'>");
    downloads().naming.dirByUrl = dirByUrl;
    downloads().overwrite = true;
    searchToEnd();
    download(1);
    QCOMPARE(contentOf(file("1/2/3/4/there")), "mine");
    QCOMPARE(downloaded(), QStringList({ link, QStringLiteral("there") }));
}

void tst_Paths::cookiesStayInTheirFolder_data()
{
    const auto row = table<QByteArray>("host");
    row("above the folder", "../h");
    row("above the folder, with a dot in front", "../../h");
    row("backslashes", "..\\h");
    row("an absolute path", "/h");
    row("NUL", QByteArrayLiteral("h\0"));
    row("no host", {});
#ifdef Q_OS_WIN
    row("a device", "aux");
    row("another stream of a file", "h:x");
#endif
}

void tst_Paths::cookiesStayInTheirFolder()
{
    QFETCH(QByteArray, host);
    const QString planted = file("data/h.tkc");
    QVERIFY(writeFile(planted, "/\ta\t1\r\n"));
    importCookies("# cookies\n" + host + "\tTRUE\t/\tFALSE\t0\ta\t2\n");
    QCOMPARE(filesBelow(file("data")), QStringList(QStringLiteral("h.tkc")));
    QCOMPARE(contentOf(planted), "/\ta\t1\r\n");
    // If the path of a URL contains ":", everything before counts as the host.
    QCOMPARE(m_session->cookies.getCookieHeader("http://" + host + ":80/"), QByteArray());
}

void tst_Paths::nothingInTheDataFolderStopsTheProgram_data()
{
    const auto row = table<QString, bool>("name", "isPipe");
    for (const char* name : { "tarnwick.ini", "views.ini", "views.ini.lock", "Cookies", "Cookies/127.0.0.1.tkc" }) {
        row("folder " + QByteArray(name), QString::fromLatin1(name), false);
#ifdef Q_OS_UNIX
        row("pipe " + QByteArray(name), QString::fromLatin1(name), true);
#endif
    }
}

/// A start, a search that stores and sends cookies, and the end of the program.
void tst_Paths::nothingInTheDataFolderStopsTheProgram()
{
    QFETCH(QString, name);
    QFETCH(bool, isPipe);
    m_window->close();
    const QString path = file("data/") + name;
    QVERIFY(QFileInfo(path).isDir() ? QDir(path).removeRecursively() : !QFile::exists(path) || QFile::remove(path));
#ifdef Q_OS_UNIX
    QVERIFY(!isPipe || mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
#endif
    QVERIFY(isPipe || QDir().mkpath(path));
    restart();
    m_session->requestPrefs.useCookies = true;
    m_server->script("/", { { "HTTP/1.1 200 OK\r\nSet-Cookie: a=1; path=/\r\nContent-Type: text/html\r\n\r\n" } });
    searchToEnd();
    m_window->close();
    QTRY_VERIFY(!m_window->isVisible());
    QVERIFY(QFileInfo::exists(path) && !QFileInfo(path).isFile());
    const bool isSaved = QFileInfo(settingsFile()).isFile();
    QCOMPARE(isSaved, name != QLatin1String("tarnwick.ini"));
    const bool keepsCookies = !name.endsWith(QLatin1String("tkc")) && (name != QLatin1String("Cookies") || !isPipe);
    QCOMPARE(m_messages.told.isEmpty(), isSaved && keepsCookies);
}

void tst_Paths::namedFilesDoNoHarm_data()
{
    const auto row = table<QByteArray>("line");
    row("a folder for a language file", "langfile=.");
    row("a disk image for a language file", "langfile=large");
    row("downloads go above the program", "DLTarget=../evil");
#ifdef Q_OS_UNIX
    row("a language file that nobody writes", "langfile=pipe");
#endif
}

void tst_Paths::namedFilesDoNoHarm()
{
    QFETCH(QByteArray, line);
    QFile large(file("large"));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(17 * 1024 * 1024));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(file("pipe").toLocal8Bit().constData(), 0600), 0);
#endif
    for (const char* name : { "large", "pipe" })
        line.replace(name, file(name).toLocal8Bit());
    QVERIFY(writeFile(settingsFile(), "lang=-1\r\n" + line + "\r\n"));
    restart();
    QVERIFY(QDir::isAbsolutePath(m_target) && !m_target.contains(QLatin1String("evil")));
    QCOMPARE(m_messages.told.size(), line.startsWith("lang") ? 1 : 0);
}

QTEST_MAIN(tst_Paths)

#include "tst_Paths.moc"
