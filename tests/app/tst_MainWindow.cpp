// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"
#include "results/ResultColumns.h"
#include "results/window/HostTree.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QRegularExpression>
#include <QTreeView>

#include <csignal>

/// Drives the main window as a user does, by the names of its controls.
class tst_MainWindow : public WindowFixture {
    Q_OBJECT

private slots:
    void init();
    void aSearchFromStartToFile();
    void stopsAndContinues();
    void tellsWhyASearchHasEnded();
    void keysReachTheirCommands();
    void speaksEveryLanguage_data();
    void speaksEveryLanguage();
    void loadsALanguageFile();
    void opensFiles_data();
    void opensFiles();
    void opensADroppedFile();
    void tellsWhatCannotBeSaved();
#ifdef Q_OS_UNIX
    void signalsSaveTheSettings();
#endif
    void helps();

private:
    /// The search commands that can be used.
    [[nodiscard]] QByteArray enabledCommands() const;
};

void tst_MainWindow::init()
{
    WindowFixture::init();
    serveSite();
    start();
}

void tst_MainWindow::aSearchFromStartToFile()
{
    searchToEnd();
    const QByteArray all = ",one.html,three.pdf,,two.png,four.html";
    QTRY_COMPARE(shownNames(), all);
    QCOMPARE(panel(1), "Search finished");
    QCOMPARE(panel(2), "Start: " + m_server->origin());
    QCOMPARE(panel(3), "Depth: 3");
    QCOMPARE(panel(4), "Found urls: 6");
    QCOMPARE(panel(5), "Analysed urls: coming soon");
    QTRY_COMPARE(panel(6), "Shown: 6"); // The panel is updated after the rows.
    QCOMPARE(the<QLabel>("nAngezeigte").text(), QStringLiteral("6"));
    QCOMPARE(cell(2, ResultColumn::Size), "5000000000");

    m_dialogs.choice = file("a.twk");
    choose("m_searchSave");
    QCOMPARE(m_dialogs.requests.first().types.first().pattern, QStringLiteral("*.twk"));
    QCOMPARE(m_dialogs.requests.first().extension, QStringLiteral("twk"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("a.twk – Tarnwick"));
    choose("m_searchSave"); // Now it has a name.
    QCOMPARE(m_dialogs.requests.size(), 1);

    start();
    choose("m_searchOpen");
    QTRY_COMPARE(shownNames(), all);
    QCOMPARE(panel(1), "Search opened.");
    QVERIFY(the<QAction>("m_searchContinue").isEnabled());
    QCOMPARE(m_shell.recentDocuments, QStringList(file("a.twk")));
    QVERIFY(m_messages.told.isEmpty());
    auto& hosts = *qobject_cast<HostTree*>(the<QTreeView>("baum").model());
    QTRY_VERIFY(hosts.find(m_server->origin() + "/b/c/", 7).isValid());
}

QByteArray tst_MainWindow::enabledCommands() const
{
    QStringList names;
    for (const QAction* const entry :
        { &the<QAction>("m_searchNew"), &the<QAction>("m_searchStop"), &the<QAction>("m_searchContinue") })
        names += entry->isEnabled() ? entry->objectName().mid(8) : QString();
    return names.join(u' ').toLatin1();
}

void tst_MainWindow::stopsAndContinues()
{
    m_server->script("/a/one.html", { { okHeader("text/html") }, Afterwards::Stall });
    QCOMPARE(panel(1), "no Search");
    QCOMPARE(panel(2), "Start: -");
    QCOMPARE(enabledCommands(), "New  ");
    beginSearch();
    QCOMPARE(panel(1), "State: Searching ...");
    QCOMPARE(enabledCommands(), " Stop ");
    QVERIFY(the<QWidget>("busy").isVisible());
    QTRY_COMPARE(panel(4), "Found urls: 5"); // The sixth item has relocated and was removed.
    const QAbstractItemModel& rows = *details().model();
    const auto toolTipOfRelocated = [&rows] {
        const QModelIndexList relocated = rows.match(rows.index(0, 0), Qt::DisplayRole, QStringLiteral("old"));
        return relocated.value(0).siblingAtColumn(ResultColumn::Status).data(Qt::ToolTipRole).toString();
    };
    QTRY_VERIFY(toolTipOfRelocated().contains(QLatin1String("Relocated: /a/one.html")));
    choose("m_searchStop");
    QCOMPARE(panel(1), "Search stopped");
    QCOMPARE(enabledCommands(), "New  Continue");
    QVERIFY(!the<QWidget>("busy").isVisible());
    m_server->page("/a/one.html", {});
    choose("m_searchContinue");
    QTRY_COMPARE(panel(1), "Search finished");
    QCOMPARE(enabledCommands(), "New  ");
}

void tst_MainWindow::tellsWhyASearchHasEnded()
{
    const QByteArray url = m_server->origin();
    m_session->search.setLimits({ 3, SearchLimits().bytes });
    beginSearch();
    QTRY_COMPARE(m_messages.told.size(), 1);
    QVERIFY2(m_messages.toldText().contains("3 URLs"), m_messages.toldText().constData());
    QCOMPARE(enabledCommands(), "New  Continue");

    m_server.reset();
    m_messages.told.clear();
    choose("m_searchNew");
    confirm("dialog_getSearch");
    QTRY_COMPARE(m_messages.told.size(), 1);
    const QByteArrayList lines = m_messages.toldText().split('\n');
    QCOMPARE(lines.value(0), "The start page could not be reached.");
    QCOMPARE(lines.value(1), url + '/');
    QVERIFY2(lines.value(2).startsWith("Network failure: "), lines.value(2).constData());
    QTRY_COMPARE(details().model()->rowCount(), 1);
}

void tst_MainWindow::keysReachTheirCommands()
{
    searchToEnd();
    QApplication::setActiveWindow(m_window.get());
    QTRY_VERIFY(m_window->isActiveWindow());
    details().setFocus();
    QTest::keyClick(&details(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&details(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1String("\r\n")), 5);
    QTest::keyClick(&details(), Qt::Key_F7);
    QTest::keyClick(&details(), Qt::Key_F8);
    QVERIFY(!the<QWidget>("fr_filter").isVisible());
    QVERIFY(!the<QWidget>("baum").isVisible());
    QTest::keyClick(&details(), Qt::Key_1, Qt::ControlModifier);
    QVERIFY(the<QListView>("l_founds_icons").isVisible());
    QTest::keyClick(m_window.get(), Qt::Key_N, Qt::ControlModifier);
    auto& dialog = the<QDialog>("dialog_getSearch");
    QVERIFY(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void tst_MainWindow::speaksEveryLanguage_data()
{
    const auto row = table<QByteArray, QString, QString>("finished", "sizeHeader", "page");
    row("m_lang(0)", "Search finished", QStringLiteral("Size"), QStringLiteral("english.html"));
    row("m_lang(1)", "Suche abgeschlossen", QStringLiteral("Größe"), QStringLiteral("deutsch.html"));
    row("m_lang(2)", "Recherche terminée", QStringLiteral("Taille"), QStringLiteral("français.html"));
}

void tst_MainWindow::speaksEveryLanguage()
{
    searchToEnd();
    choose(QTest::currentDataTag());
    QTEST(panel(1), "finished");
    QTEST(details().model()->headerData(ResultColumn::Size, Qt::Horizontal).toString(), "sizeHeader");
    choose("m_goHelpfile");
    const QString page = QFileInfo(m_shell.openedFiles.value(0)).fileName();
    QTEST(page, "page");
    const QDir guide(QStringLiteral(TARNWICK_GUIDE));
    static const QRegularExpression picture(QStringLiteral("src=\"([^\"]+)\""));
    QVERIFY(guide.exists(page));
    for (const auto& match : picture.globalMatch(QString::fromUtf8(contentOf(guide.filePath(page)))))
        QVERIFY2(guide.exists(match.captured(1)), qPrintable(match.captured(1)));
    QVERIFY(m_messages.told.isEmpty());
}

void tst_MainWindow::loadsALanguageFile()
{
    QVERIFY(writeFile(file("x.lng"), "main.m_quit=Basta\nMain.x=\nMain.y=\nlang.search_noSearch=niente\n"));
    m_dialogs.choice = file("x.lng");
    m_messages.answer = false;
    choose("m_externLang");
    QCOMPARE(m_messages.asked.size(), 1);
    QCOMPARE(m_messages.asked.first().title, QStringLiteral("Parsing Error"));
    QCOMPARE(m_messages.askedText(),
        "Not a valid l-Value for Translation: Main.x\nContinue loading Language-file?\n"
            + QDir::toNativeSeparators(file("x.lng")).toUtf8() + ":2");
    QCOMPARE(the<QAction>("m_quit").text(), QStringLiteral("Basta"));
    QCOMPARE(panel(1), "no Search");
    QVERIFY(!the<QAction>("m_lang(0)").isChecked());
    m_messages.answer = true;
    choose("m_externLang");
    QCOMPARE(m_messages.asked.size(), 3);
    QCOMPARE(panel(1), "niente");

    choose("m_lang(0)");
    QCOMPARE(panel(1), "no Search");
    m_dialogs.choice = file("none");
    choose("m_externLang");
    QVERIFY(m_messages.toldText().startsWith("Error while loading language file\n"));
    QVERIFY(the<QAction>("m_lang(0)").isChecked());
    quit();
    QVERIFY(contentOf(settingsFile()).contains("\r\nlang=0\r\n"));
}

void tst_MainWindow::opensFiles_data()
{
    const auto row = table<QByteArray, int, QByteArray>("content", "rows", "told");
    row("parameters alone", "StartUrl=http://h/\r\n", 0, {});
    row("two lines that are not understood", "StartUrl=x\r\nFoo=1\r\nbar\r\nResults:\r\nhttp://h:80/\r\n", 1,
        "o.twk\n2: Invalid attribut:: Foo\n3: Invalid attribut:: bar");
    row("too many of them", "Depth=1\r\n" + QByteArray("x=\r\n").repeated(1000), 0,
        "\n11: Invalid attribut:: x\n... and 990 more");
    row("a truncated file", "Results:\r\nhttp://h:80/\r\nhttp://h", 1, "Unexpected end of file");
    row("no search file", "hello\r\n", 6, "Error while opening: this is not a search file");
}

void tst_MainWindow::opensFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, told);
    QFETCH(int, rows);
    searchToEnd();
    QVERIFY(writeFile(file("o.twk"), content));
    m_window->open(file("o.twk"));
    QTRY_COMPARE(m_messages.told.size(), told.isEmpty() ? 0 : 1);
    QVERIFY2(m_messages.toldText().endsWith(told), m_messages.toldText().constData());
    QTRY_COMPARE(details().model()->rowCount(), rows);
    // A file that cannot be read changes nothing.
    const bool isRead = told != "Error while opening: this is not a search file";
    QCOMPARE(m_window->windowTitle(), isRead ? QStringLiteral("o.twk – Tarnwick") : QStringLiteral("Tarnwick"));
    QCOMPARE(m_session->searchOptions.startUrl == m_server->origin(), !isRead || !content.contains("StartUrl"));
}

void tst_MainWindow::opensADroppedFile()
{
    QVERIFY(writeFile(file("d.twk"), "Results:\r\nhttp://h:80/dropped\r\n"));
    QVERIFY(drop(*m_window, { QUrl::fromLocalFile(file("d.twk")) }));
    QTRY_COMPARE(shownNames(), "dropped");
    // A page that is dragged from a browser is not a file.
    QVERIFY(!drop(*m_window, { QUrl(QStringLiteral("http://h/x.twk")) }));
}

void tst_MainWindow::tellsWhatCannotBeSaved()
{
    m_dialogs.choice = file("no/such/folder/x.twk");
    choose("m_searchSaveAs");
    QCOMPARE(m_messages.told.size(), 1);
    QCOMPARE(m_messages.told.first().title, QStringLiteral("Error while saving"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Tarnwick"));
}

#ifdef Q_OS_UNIX
void tst_MainWindow::signalsSaveTheSettings()
{
    choose("m_showTree");
    for (const int signal : { SIGHUP, SIGINT, SIGTERM }) {
        const EndRequest request;
        connect(&request, &EndRequest::received, m_window.get(), &MainWindow::saveBeforeEnd);
        QVERIFY(!QFile::exists(settingsFile()));
        std::raise(signal);
        QTRY_VERIFY(contentOf(settingsFile()).contains("\r\ntree=0\r\n"));
        QVERIFY(QFile::remove(settingsFile()));
    }
}
#endif

void tst_MainWindow::helps()
{
    m_session->language.set("lang.helpfile", QStringLiteral("../evil.exe"));
    choose("m_goHelpfile");
    QCOMPARE(m_shell.openedFiles.value(0), QString());
    m_shell.opens = false;
    choose("m_goHelpfile");
    QCOMPARE(m_messages.toldText(), m_session->language.text("lang.errHelp").toUtf8());
    choose("m_about");
    QVERIFY(m_messages.toldText(1).contains(qVersion()));
}

QTEST_MAIN(tst_MainWindow)

#include "tst_MainWindow.moc"
