// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "base/folders.h"
#include "results/SearchFile.h"
#include "results/SearchFileReader.h"
#include "results/window/FoundsView.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QDirIterator>
#include <QProcess>
#include <QRegularExpression>

#include <utility>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// Attacks by hostile servers and by the makers of hostile files. Each attack enters the way a real one would: by an
/// answer, or by a file that the user opens. The tests judge the results: files, requests, command lines.
class tst_Attacks : public WindowFixture {
    Q_OBJECT

private slots:
    void init();
    void downloadsStayInTheirFolder_data();
    void downloadsStayInTheirFolder();
    void downloadsFollowNoLinks_data();
    void downloadsFollowNoLinks();
    void cookiesStayInTheirFolder_data();
    void cookiesStayInTheirFolder();
    void serversBreakNoLine_data() { addBreaks(); }
    void serversBreakNoLine();
    void filesBreakNoLine_data() { addBreaks(); }
    void filesBreakNoLine();
    void searchFilesChangeNoPreferences_data();
    void searchFilesChangeNoPreferences();
    void exportsRunNothing();
    void onlyTheWebIsOpened();
    void nothingInTheDataFolderStopsTheProgram_data();
    void nothingInTheDataFolderStopsTheProgram();
    void namedFilesDoNoHarm_data();
    void namedFilesDoNoHarm();

private:
    void restart();
    static void addBreaks();
    void openFile(const QByteArray& content);
    void download(int row);
    void downloadAgain();
    void waitForDownloads();
    void importCookies(const QByteArray& content);
    void checkRequests() const;
    void checkSearchFile();
    /// The files in the target folder and outside of it, with paths from the folder above.
    [[nodiscard]] QStringList downloaded() const;
    [[nodiscard]] FoundsView& rows() const { return *m_window->findChild<FoundsView*>(); }

    QString m_target; ///< the target folder of downloads, as it was loaded
};

namespace {

/// The files in a folder and all folders below it, by their paths from there.
QStringList filesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator all(
        folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        if (!all.fileInfo().isDir() || all.fileInfo().isSymbolicLink())
            files += QDir(folder).relativeFilePath(all.filePath());
    }
    files.sort();
    return files;
}

/// Whether a text consists of lines that end in CR LF, with no CR, LF or NUL inside.
bool isWholeLines(QByteArray text)
{
    if (!text.endsWith("\r\n"))
        return false;
    text.replace("\r\n", "");
    return !text.contains('\r') && !text.contains('\n') && !text.contains('\0');
}

} // namespace

void tst_Attacks::init()
{
    WindowFixture::init();
    QVERIFY(QDir().mkpath(file("1/2/3/4/target")));
    restart();
}

void tst_Attacks::restart()
{
    start();
    // Deep enough that a path upwards still ends inside the test's own folder.
    m_target = std::exchange(downloads().target, allgemein::withTrailingSeparator(file("1/2/3/4/target")));
    m_session->windows.autoOpenDLM = false;
}

/// Adds a row for each sign that might end a line, a field or a text.
void tst_Attacks::addBreaks()
{
    const auto row = table<QByteArray>("sign");
    row("CR", "\r");
    row("LF", "\n");
    row("CR LF", "\r\n");
    row("TAB", "\t");
    row("NUL", QByteArray(1, '\0'));
}

void tst_Attacks::openFile(const QByteArray& content)
{
    QVERIFY(writeFile(file("in.twk"), content));
    m_window->open(file("in.twk"));
    QTRY_VERIFY(the<QAction>("m_requests").isEnabled());
    choose("m_selectAll");
}

void tst_Attacks::download(int row)
{
    rows().selectRows({ { row, row } }, QItemSelectionModel::ClearAndSelect);
    const int before = m_session->downloads.count();
    choose("m_selectedDownload");
    QCOMPARE(m_session->downloads.count(), before + 1);
    waitForDownloads();
}

void tst_Attacks::downloadAgain()
{
    const int last = m_session->downloads.count() - 1;
    m_session->downloads.queue({ { last, last } });
    waitForDownloads();
}

void tst_Attacks::waitForDownloads()
{
    QTRY_COMPARE(m_session->downloads.runningCount() + m_session->downloads.waitingCount(), 0);
}

void tst_Attacks::importCookies(const QByteArray& content)
{
    QVERIFY(writeFile(file("cookies.txt"), content));
    m_dialogs.choice = file("cookies.txt");
    m_session->requestPrefs.useCookies = true;
    choose("m_requests");
    click("b_cookiesImportFF");
    QTRY_COMPARE(m_messages.told.size(), 1);
}

QStringList tst_Attacks::downloaded() const
{
    QStringList files = filesBelow(file("1/2/3/4"));
    for (const QString& file : filesBelow(file("1"))) {
        if (!file.startsWith(QLatin1String("2/3/4/")))
            files += QLatin1String("outside: ") + file;
    }
    return files;
}

/// Checks that every line of every request is one that the program means to send.
void tst_Attacks::checkRequests() const
{
    for (const QByteArray& request : m_server->requests()) {
        QVERIFY2(isWholeLines(request) && !request.contains('\t'), request.toPercentEncoding(" :/").constData());
        static const QRegularExpression whole(QStringLiteral("^GET [^\r]+\r\n((Host|Accept|Connection|User-Agent"
                                                             "|Accept-Language|Cookie|Referer): [^\r]*\r\n)+\r\n$"));
        QVERIFY2(whole.match(QString::fromLatin1(request)).hasMatch(), request.constData());
    }
}

/// Checks that the found items are the same after saving and reading them.
void tst_Attacks::checkSearchFile()
{
    m_dialogs.choice = file("out.twk");
    choose("m_searchSaveAs");
    QVERIFY(isWholeLines(contentOf(m_dialogs.choice)));
    StoredSearch read;
    const searchFile::LoadResult result = searchFile::load(m_dialogs.choice, read);
    QCOMPARE(result.skippedCount, 0);
    QCOMPARE(read.list.getAnzahl(), m_session->foundItems.getAnzahl());
    const FundKnoten* there = read.list.getStart();
    for (const FundKnoten* here = m_session->foundItems.getStart(); here; here = here->naechster()) {
        for (const auto field : { &FundStück::adresse, &FundStück::mimeTyp, &FundStück::sprache, &FundStück::referer })
            QCOMPARE(there->inhalt.*field, allgemein::onOneLine(here->inhalt.*field));
        QVERIFY(allgemein::isOnOneLine(here->inhalt.adresse));
        there = there->naechster();
    }
}

void tst_Attacks::downloadsStayInTheirFolder_data()
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

void tst_Attacks::downloadsStayInTheirFolder()
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

void tst_Attacks::downloadsFollowNoLinks_data()
{
    const auto row = table<QString, QString, bool>("link", "to", "dirByUrl");
    row("the file is a link", QStringLiteral("target/f"), QStringLiteral("there"), false);
    row("the file is a link to nothing", QStringLiteral("target/f"), QStringLiteral("nothing"), false);
    row("a folder is a link", QStringLiteral("target/1"), QStringLiteral("folder"), true);
}

void tst_Attacks::downloadsFollowNoLinks()
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

void tst_Attacks::cookiesStayInTheirFolder_data()
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

void tst_Attacks::cookiesStayInTheirFolder()
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

void tst_Attacks::serversBreakNoLine()
{
    QFETCH(QByteArray, sign);
    const QByteArray evil = sign + "Evil";
    const QByteArray written = allgemein::onOneLine(evil);
    m_server->page("/", "<a href='/a" + evil + "'><a href='/r'><a href='/t'>");
    m_server->page("/a" + written, "<a href='/b'>");
    m_server->script("/r",
        { { "HTTP/1.1 302 Found\r\nLocation: /c" + evil + "\r\nSet-Cookie: a=1" + evil + "; path=/\r\nSet-Cookie: b"
            + evil + "=2; path=/\r\nSet-Cookie: c=3; path=/" + evil + ";\r\nSet-Cookie: d=4; path=/\r\n\r\n" } });
    m_server->script(
        "/t", { { "HTTP/1.1 200 OK\r\nContent-Type: text/x" + evil + "\r\nContent-Language: l" + evil + "\r\n\r\n" } });
    m_session->requestPrefs.useCookies = true;
    m_session->search.setFollowRelocation(true);
    searchToEnd();
    m_session->downloads.addDL(m_server->origin() + "/r", -1, {});
    waitForDownloads();
    downloadAgain();
    const QString name = downloaded().value(0);
    QVERIFY2(name.startsWith(QLatin1String("target/c")) && allgemein::isOnOneLine(name.toLatin1()), qPrintable(name));
    checkRequests();
    QVERIFY(m_server->paths().contains("/a" + written));
    const QByteArray referrer = "/a" + written + "\r\n\r\n";
    QVERIFY(m_server->requests().join().contains(referrer));
    const QByteArray cookies = contentOf(file("data/Cookies/127.0.0.1.tkc"));
    QVERIFY2(cookies.endsWith("/\td\t4\r\n") && isWholeLines(cookies) && cookies.count('\t') == 2 * cookies.count('\n'),
        cookies.constData());

    checkSearchFile();
    m_window->close();
    QVERIFY(isWholeLines(contentOf(settingsFile())));
    const size_t types = m_session->filter.mimeListe.entries().size();
    restart();
    QCOMPARE(m_messages.told.size(), 0);
    QCOMPARE(m_session->filter.mimeListe.entries().size(), types);
}

void tst_Attacks::filesBreakNoLine()
{
    QFETCH(QByteArray, sign);
    const QByteArray evil = sign + "Evil";
    const QByteArray origin = m_server->origin();
    m_session->requestPrefs.useCookies = true;
    importCookies("# cookies\n127.0.0.1\tTRUE\t/\tFALSE\t0\tb\t2" + evil + "\n");
    QVERIFY(writeFile(file("data/Cookies/127.0.0.1.tkc"), "/\ta\t1" + evil + "\r\n/\tb" + evil + "\t2\r\n/\tc\t3\r\n"));
    openFile("useCookies=1\r\nUseUserAgent=1\r\nUserAgent=u" + evil + "\r\nUseLanguage=1\r\nLanguage=" + evil
        + "\r\nResults:\r\n" + origin + "/a" + evil + "\tm" + evil + "\t0\t0\t0\t0\t0\tl" + evil + "\thttp://r" + evil
        + "\r\n" + origin + "/b\tm\t0\t0\t0\t0\t0\tl\thttp://r" + evil + "\r\n");
    checkSearchFile();
    choose("m_searchContinue");
    QTRY_VERIFY(!m_session->search.isSearching());
    QVERIFY(m_server->requests().size() >= 2);
    QVERIFY(m_server->requests().join().contains("c=3\r\n"));
    checkRequests();
    m_window->close();
    QVERIFY(isWholeLines(contentOf(settingsFile())));
}

void tst_Attacks::searchFilesChangeNoPreferences_data()
{
    const auto row = table<bool, bool>("answer", "closes");
    row("the user says No", false, false);
    row("the user closes the question", true, true);
    row("the user says Yes", true, false);
}

/// A stranger's file wants the user's cookies to be sent, without a warning, and other preferences changed.
void tst_Attacks::searchFilesChangeNoPreferences()
{
    QFETCH(bool, answer);
    QFETCH(bool, closes);
    const bool agrees = answer && !closes;
    QVERIFY(m_session->cookies.saveCookie("127.0.0.1", "/", "secret", "1"));
    m_messages.answer = answer;
    m_messages.closes = closes;
    openFile("useCookies=1\r\ndontWarnAboutCookiesAgain=1\r\nsetCookies=0\r\nUserAgent=evil\r\nUseLanguage=1\r\n"
             "Language=xx\r\nReferrer=0\r\nResults:\r\n"
        + m_server->origin() + "/a\r\n");
    QCOMPARE(m_messages.asked.size(), 1);
    QVERIFY(m_messages.returnIsHarmless());
    choose("m_searchContinue");
    QTRY_VERIFY(!m_session->search.isSearching());
    const QByteArray request = m_server->requests().value(0);
    QVERIFY(request.contains("User-Agent: evil\r\n"));
    QCOMPARE(request.contains("Cookie: secret=1\r\n"), agrees);
    QVERIFY(!m_session->requestPrefs.dontWarnAboutCookiesAgain);
    searchToEnd(); // a new search: the permission has ended
    QVERIFY(!m_server->requests().constLast().contains("Cookie"));

    m_window->close();
    const QByteArray saved = contentOf(settingsFile());
    for (const char* line :
        { "Referrer=1", "UserAgent=", "UseLanguage=0", "useCookies=0", "setCookies=1", "dontWarnAboutCookiesAgain=0" })
        QVERIFY2(saved.contains(QByteArray(QByteArray(line) + "\r\n")), line);
    QVERIFY(!saved.contains("\r\nLanguage="));
}

/// Cuts the exported lines wherever a spreadsheet program may begin a cell, and checks how the cells begin.
void tst_Attacks::exportsRunNothing()
{
    QByteArray content = "Results:\r\n";
    for (const QByteArray formula : { "=cmd|' /C calc'!A0", "+1", "-1", "@SUM(1)", "\"=1\"", "'=1" }) {
        for (const char* front : { "", "x,", "x;", "x ", "x\"", "http://h:80/" })
            content += front + formula + '\t' + front + formula + "\t1\t1\t4\t200\t1\t" + front + formula + "\t\r\n";
    }
    openFile(content);
    m_messages.answer = false; // export all rows, not the selected ones
    for (const char* entry : { "m_exportAsCsv", "m_exportAsUrlList" }) {
        const bool csv = entry == QByteArray("m_exportAsCsv");
        m_dialogs.choice = file("out");
        choose(entry);
        QTRY_COMPARE(contentOf(m_dialogs.choice).count('\n'), content.count('\n') - (csv ? 0 : 1));
        for (QByteArray cell : contentOf(m_dialogs.choice).replace("\r\n", "\t").split('\t'))
            QVERIFY2(cell.isEmpty() || !QByteArrayView("=+-@\"").contains(cell.front()), cell.constData());
        for (const char separator : { ',', ';', ' ' }) {
            for (QByteArray cell : contentOf(m_dialogs.choice).split(csv ? separator : '\0')) {
                while (cell.startsWith('"'))
                    cell.remove(0, 1);
                QVERIFY2(cell.isEmpty() || !QByteArrayView("=+-@").contains(cell.front()), cell.constData());
            }
        }
        QVERIFY(QFile::remove(m_dialogs.choice));
    }
}

void tst_Attacks::onlyTheWebIsOpened()
{
    const QByteArrayList harmless { "http://h:80/", "HTTPS://h:443/", "ftp://h:21/x", "http://h:80/a b\" \"c",
        "http://h:80/a\xc2\xa0--x" };
    const QByteArrayList hostile { "file:///etc/passwd", "file://h:80/x", "javascript:alert(1)",
        "javascript://h:80/%0Ax", "http:x", "C:\\x.exe", "\\\\h\\x.exe", "://h", "-o", "-evil://h", "--evil=://h",
        "/evil:x", "search-ms://h", " http://h", "data:text/html,x" };
    openFile("Results:\r\n" + (hostile + harmless).join("\r\n") + "\r\n");
    choose("m_selectedOpen");
    QTRY_COMPARE(m_shell.openedUrls.size(), harmless.size());
    for (const QUrl& url : m_shell.openedUrls)
        QVERIFY2(
            QByteArrayList({ "http", "https", "ftp" }).contains(url.scheme().toLatin1()), qPrintable(url.toString()));

    choose("m_selectedOpenBy");
    the<QLineEdit>("programmPfad").setText(QStringLiteral("player"));
    confirm("dialog_openBy");
    QTRY_COMPARE(m_shell.started.size(), harmless.size() + 8);
    for (const ProgramCommand& command : m_shell.started) {
        const QStringList arguments = QProcess::splitCommand(command.arguments);
        QVERIFY2(arguments == QStringList(command.arguments) && arguments.first().at(0).isLetter(),
            qPrintable(command.arguments));
    }
}

void tst_Attacks::nothingInTheDataFolderStopsTheProgram_data()
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
void tst_Attacks::nothingInTheDataFolderStopsTheProgram()
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

void tst_Attacks::namedFilesDoNoHarm_data()
{
    const auto row = table<QByteArray>("line");
    row("a folder for a language file", "langfile=.");
    row("a disk image for a language file", "langfile=large");
    row("downloads go above the program", "DLTarget=../evil");
#ifdef Q_OS_UNIX
    row("a language file that nobody writes", "langfile=pipe");
#endif
}

void tst_Attacks::namedFilesDoNoHarm()
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

QTEST_MAIN(tst_Attacks)
#include "tst_Attacks.moc"
