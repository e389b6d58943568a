// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/allgemein.h"
#include "results/SearchFile.h"
#include "results/SearchFileReader.h"
#include "support/AttackFixture.h"
#include "support/Table.h"

#include <QProcess>
#include <QRegularExpression>

/// Attacks by texts: signs that would end a line, formulas, commands, and preferences that a file brings.
class tst_Texts : public AttackFixture {
    Q_OBJECT

private slots:
    void serversBreakNoLine_data() { addBreaks(); }
    void serversBreakNoLine();
    void filesBreakNoLine_data() { addBreaks(); }
    void filesBreakNoLine();
    void searchFilesChangeNoPreferences_data();
    void searchFilesChangeNoPreferences();
    void exportsRunNothing();
    void onlyTheWebIsOpened();

private:
    static void addBreaks();
    void checkRequests() const;
    void checkSearchFile();
};

namespace {

/// Whether a text consists of lines that end in CR LF, with no CR, LF or NUL inside.
bool isWholeLines(QByteArray text)
{
    if (!text.endsWith("\r\n"))
        return false;
    text.replace("\r\n", "");
    return !text.contains('\r') && !text.contains('\n') && !text.contains('\0');
}

} // namespace

/// Adds a row for each sign that might end a line, a field or a text.
void tst_Texts::addBreaks()
{
    const auto row = table<QByteArray>("sign");
    row("CR", "\r");
    row("LF", "\n");
    row("CR LF", "\r\n");
    row("TAB", "\t");
    row("NUL", QByteArray(1, '\0'));
}

/// Checks that every line of every request is one that the program means to send.
void tst_Texts::checkRequests() const
{
    for (const QByteArray& request : m_server->requests()) {
        QVERIFY2(isWholeLines(request) && !request.contains('\t'), request.toPercentEncoding(" :/").constData());
        static const QRegularExpression whole(QStringLiteral("^GET [^\r]+\r\n((Host|Accept|Connection|User-Agent"
                                                             "|Accept-Language|Cookie|Referer): [^\r]*\r\n)+\r\n$"));
        QVERIFY2(whole.match(QString::fromLatin1(request)).hasMatch(), request.constData());
    }
}

/// Checks that the found items are the same after saving and reading them.
void tst_Texts::checkSearchFile()
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

void tst_Texts::serversBreakNoLine()
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

void tst_Texts::filesBreakNoLine()
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

void tst_Texts::searchFilesChangeNoPreferences_data()
{
    const auto row = table<bool, bool>("answer", "closes");
    row("the user says No", false, false);
    row("the user closes the question", true, true);
    row("the user says Yes", true, false);
}

/// A stranger's file wants the user's cookies to be sent, without a warning, and other preferences changed.
void tst_Texts::searchFilesChangeNoPreferences()
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
void tst_Texts::exportsRunNothing()
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

void tst_Texts::onlyTheWebIsOpened()
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

QTEST_MAIN(tst_Texts)

#include "tst_Texts.moc"
