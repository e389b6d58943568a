// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"
#include "base/window/zahlenEingabe.h"
#include "results/ResultColumns.h"
#include "results/window/MimeModel.h"
#include "support/Table.h"
#include "support/WindowFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QListWidget>
#include <QRegularExpression>
#include <QSignalSpy>
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
    void narrowsByTheFilter();
    void withoutAutomaticsTheListWaitsForApply();
    void narrowsByTheTree();
    void theListShowsTheCurrentBranch();
    void tellsOfAHiddenFilter();
    void answersPassTheFilterWhileSearching();
    void aDoubleClickOpensItsRow();
    void changesUnits();
    void keysReachTheirCommands();
    void rowsAreTheSameInEveryMode();
    void marksSelectsAndCopies();
    void downloadsRows();
    void speaksEveryLanguage_data();
    void speaksEveryLanguage();
    void loadsALanguageFile();
    void opensFiles_data();
    void opensFiles();
    void opensADroppedFile();
    void tellsWhatCannotBeSaved();
#ifdef Q_OS_UNIX
    void signalsSaveTheSettings_data();
    void signalsSaveTheSettings();
#endif
    void helps();

private:
    /// The search commands that can be used.
    [[nodiscard]] QByteArray enabledCommands() const;
    /// The rows' file names with commas between them.
    [[nodiscard]] QByteArray shownNames() const;
    [[nodiscard]] HostTree& hosts() const
    {
        return *qobject_cast<HostTree*>(the<QTreeView>("baum").model());
    }
    void clickBranch(const QByteArray& url, qint32 level) const;
};

void tst_MainWindow::init()
{
    WindowFixture::init();
    m_server->page("/",
        "<a href='a/one.html'><img src='a/two.png'><a href='b/three.pdf'><a href='old'>"
        "<a href='https://h/'>");
    m_server->script("/a/one.html", { { okHeader("text/html; x"), "<a href='/b/c/four.html'>" } });
    m_server->script(
        "/a/two.png", { { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 2048\r\n\r\n" } });
    m_server->script("/b/three.pdf",
        { { "HTTP/1.1 200 OK\r\nContent-Type: application/pdf\r\nContent-Length: 5000000000\r\n\r\n" } });
    m_server->relocation("/old", "/a/one.html");
    start();
}

QByteArray tst_MainWindow::shownNames() const
{
    QByteArrayList names;
    for (int row = 0; row < details().model()->rowCount(); ++row)
        names += cell(row, ResultColumn::FileName);
    return names.join(',');
}

void tst_MainWindow::clickBranch(const QByteArray& url, qint32 level) const
{
    auto& tree = the<QTreeView>("baum");
    const QModelIndex index = hosts().find(url, level);
    QVERIFY(index.isValid());
    tree.scrollTo(index);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
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
    QTRY_VERIFY(hosts().find(m_server->origin() + "/b/c/", 7).isValid());
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

void tst_MainWindow::narrowsByTheFilter()
{
    searchToEnd();
    QAbstractItemModel& types = *the<QListView>("mimeListe").model();
    const QModelIndexList image = types.match(types.index(0, 0), Qt::DisplayRole, QStringLiteral("image/png"));
    QVERIFY(types.setData(image.value(0), Qt::Checked, Qt::CheckStateRole));
    click("mimeFilterSwitch(1)");
    QTRY_COMPARE(shownNames(), "two.png");
    QTRY_COMPARE(panel(6), "Shown: 1");
    click("mimeFilterSwitch(2)");
    QTRY_COMPARE(shownNames(), ",one.html,three.pdf,,four.html");
    the<zahlenEingabe>("minDepth").setValue(1);
    the<zahlenEingabe>("maxDepth").setValue(1);
    click("c_useMaxDepth");
    QTRY_COMPARE(shownNames(), "one.html,three.pdf,");
}

void tst_MainWindow::withoutAutomaticsTheListWaitsForApply()
{
    searchToEnd();
    choose("m_filterAutoApply");
    click("urlFilterSwitch(1)");
    the<QLineEdit>("neuFilterText").setText(QStringLiteral(".pdf"));
    click("addFilterText");
    choose("m_einheit(1)");
    clickBranch(m_server->origin() + '/', 0);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(details().model()->rowCount(), 6);
    QCOMPARE(cell(4, ResultColumn::Size), "2048");
    click("b_filterAkt");
    QTRY_COMPARE(shownNames(), "three.pdf");

    choose("m_filterAutoApply");
    the<QListWidget>("filterTexte").item(0)->setSelected(true);
    click("removeFilterText");
    QTRY_COMPARE(details().model()->rowCount(), 0);
    click("urlFilterSwitch(2)");
    QTRY_COMPARE(details().model()->rowCount(), 6);
}

void tst_MainWindow::narrowsByTheTree()
{
    searchToEnd();
    clickBranch(m_server->origin() + "/b/", 6);
    QTRY_COMPARE(shownNames(), "three.pdf,four.html");
    clickBranch(m_server->origin() + "/b/c/", 7);
    QTRY_COMPARE(shownNames(), "four.html");
    // An item has relocated, so the tree is rebuilt at the end of the search. The chosen branch stays chosen.
    const auto& tree = the<QTreeView>("baum");
    QCOMPARE(tree.currentIndex().data().toString(), QStringLiteral("c"));
    m_session->foundItems.remove(m_session->foundItems.getStart());
    QSignalSpy remade(tree.model(), &QAbstractItemModel::modelReset);
    hosts().rebuild();
    QTRY_COMPARE(remade.count(), 1);
    QCOMPARE(tree.currentIndex().data().toString(), QStringLiteral("c"));
    QVERIFY(tree.isExpanded(tree.currentIndex().parent()));
    clickBranch(m_server->origin(), 0);
    QTRY_COMPARE(details().model()->rowCount(), 5);

    // A new search begins at the root.
    clickBranch(m_server->origin() + "/b/", 6);
    searchToEnd();
    QTRY_COMPARE(details().model()->rowCount(), 6);
}

void tst_MainWindow::theListShowsTheCurrentBranch()
{
    searchToEnd();
    auto& tree = the<QTreeView>("baum");
    tree.expandAll();
    const QByteArray origin = m_server->origin();
    clickBranch(origin + "/a/", 6);
    QTRY_COMPARE(shownNames(), "one.html,two.png");
    QTest::keyClick(&tree, Qt::Key_Down);
    QTRY_COMPARE(shownNames(), "three.pdf,four.html");
    tree.scrollTo(hosts().find(origin + "/b/c/", 7));
    QTest::mouseClick(
        tree.viewport(), Qt::RightButton, {}, tree.visualRect(hosts().find(origin + "/b/c/", 7)).center());
    QTRY_COMPARE(shownNames(), "four.html");
    // The selection is what the user sees.
    QTest::mouseClick(
        tree.viewport(), Qt::LeftButton, Qt::ControlModifier, tree.visualRect(tree.currentIndex()).center());
    QVERIFY(tree.selectionModel()->isSelected(tree.currentIndex()));
    QTest::keyClick(&tree, Qt::Key_Home);
    QTRY_COMPARE(details().model()->rowCount(), 6);

    // Without the tree, the filter pane lifts the branch.
    clickBranch(origin + "/b/", 6);
    choose("m_showTree");
    click("b_liftBranch");
    QTRY_COMPARE(details().model()->rowCount(), 6);
    QCOMPARE(tree.currentIndex(), tree.model()->index(0, 0));
}

void tst_MainWindow::tellsOfAHiddenFilter()
{
    searchToEnd();
    const auto& sign = the<QWidget>("b_filtered");
    QVERIFY(!sign.isVisible());
    click("b_closeFilter");
    clickBranch(m_server->origin() + "/a/", 6);
    QTRY_VERIFY(sign.isVisible());
    click("b_filtered");
    QVERIFY(the<QWidget>("fr_filter").isVisible());
    click("b_resetFilter");
    QTRY_VERIFY(!sign.isVisible());
    QTRY_COMPARE(details().model()->rowCount(), 6);

    choose("m_filterAutoApply");
    click("mimeFilterSwitch(1)");
    QCOMPARE(details().model()->rowCount(), 6);
    choose("m_filterAutoApply"); // applies what is waiting
    QTRY_COMPARE(details().model()->rowCount(), 0);
}

void tst_MainWindow::answersPassTheFilterWhileSearching()
{
    auto& types = *qobject_cast<MimeModel*>(the<QListView>("mimeListe").model());
    types.meet("image/png");
    types.setData(types.index(0), Qt::Checked, Qt::CheckStateRole);
    click("mimeFilterSwitch(1)");
    m_server->script("/b/c/four.html", { { okHeader("text/html") }, Afterwards::Stall });
    beginSearch();
    QTRY_COMPARE(shownNames(), "two.png");
    choose("m_searchStop");
    QCOMPARE(shownNames(), "two.png");
}

void tst_MainWindow::aDoubleClickOpensItsRow()
{
    searchToEnd();
    details().selectAll();
    const auto doubleClick = [this](const QModelIndex& index, int x) {
        const QRect cell = details().visualRect(index);
        QTest::mouseClick(details().viewport(), Qt::LeftButton, {}, { cell.left() + x, cell.center().y() });
        details().selectAll(); // as if the click had been one with Ctrl
        QTest::mouseDClick(details().viewport(), Qt::LeftButton, {}, { cell.left() + x, cell.center().y() });
        QTest::mouseRelease(details().viewport(), Qt::LeftButton, {}, { cell.left() + x, cell.center().y() });
    };
    const QModelIndex name = details().model()->index(2, ResultColumn::FileName);
    doubleClick(name, 10); // on the check box
    QCOMPARE(m_shell.openedUrls.size(), 0);
    QCOMPARE(name.data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Unchecked)); // toggled twice
    doubleClick(name, details().visualRect(name).width() - 5);
    doubleClick(name.siblingAtColumn(ResultColumn::MimeContent), 5);
    const QUrl url(QString::fromLatin1(m_server->origin() + "/b/three.pdf"));
    QCOMPARE(m_shell.openedUrls, (QList<QUrl> { url, url }));
}

void tst_MainWindow::changesUnits()
{
    searchToEnd();
    choose("m_einheit(1)");
    QTRY_COMPARE(cell(4, ResultColumn::Size), "2");
    the<zahlenEingabe>("minSize").setValue(2);
    the<zahlenEingabe>("maxSize").setValue(2);
    click("c_useSize");
    QTRY_COMPARE(shownNames(), "two.png");
    choose("m_einheit(2)");
    QTRY_COMPARE(details().model()->rowCount(), 0);
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

void tst_MainWindow::rowsAreTheSameInEveryMode()
{
    searchToEnd();
    auto& icons = the<QListView>("l_founds_icons");
    details().selectRow(2);
    QSet<QPoint> places;
    for (const char* const mode : { "m_listMode(0)", "m_listMode(1)", "m_listMode(2)" }) {
        choose(mode);
        QVERIFY(icons.isVisible() && !details().isVisible());
        QCOMPARE(icons.selectionModel()->selectedRows().value(0).row(), 2);
        QCOMPARE(icons.model()->rowCount(), 6);
        places += icons.visualRect(icons.model()->index(5, 0)).topLeft();
    }
    QCOMPARE(places.size(), 3);
    choose("m_listMode(3)");
    QVERIFY(!icons.isVisible() && details().isVisible());
}

void tst_MainWindow::marksSelectsAndCopies()
{
    searchToEnd();
    const auto copied = [this] {
        return QGuiApplication::clipboard()->text().toLatin1().replace(m_server->origin(), "").replace("\r\n", " ");
    };
    details().selectRow(1);
    choose("m_selectedMark");
    choose("m_selectedInvert");
    choose("m_selectedToClipboard");
    QCOMPARE(copied(), "/ /b/three.pdf https://h:80/ /a/two.png /b/c/four.html");
    choose("m_markedToClipboard");
    QCOMPARE(copied(), "/a/one.html");
    details().selectRow(2);
    choose("m_markedSelect");
    choose("m_selectedToClipboard");
    QCOMPARE(copied(), "/a/one.html /b/three.pdf");
    details().setCurrentIndex(details().model()->index(5, ResultColumn::Url));
    QTest::keyClick(&details(), Qt::Key_Space);
    choose("m_markedToClipboard");
    QCOMPARE(copied(), "/a/one.html /b/c/four.html");
    choose("m_selectAll");
    choose("m_selectedDemark");
    choose("m_markedToClipboard"); // Nothing is marked, so the clipboard stays.
    QCOMPARE(copied(), "/a/one.html /b/c/four.html");
}

void tst_MainWindow::downloadsRows()
{
    downloads().target = m_folder->path() + u'/';
    downloads().overwrite = true;
    downloads().startImmediately = false;
    m_session->requestPrefs.useReferrer = true;
    searchToEnd();
    choose("m_autoOpenDLM");
    choose("m_selectedDownload"); // with no row selected
    QVERIFY(!downloadManager());
    choose("m_autoOpenDLM");
    choose("m_markedDownload");
    QVERIFY(downloadManager()->isVisible());
    QCOMPARE(m_session->downloads.count(), 0);

    choose("m_einheit(1)");
    QTRY_COMPARE(cell(4, ResultColumn::Size), "2");
    details().selectRow(4);
    choose("m_selectedDownload");
    QCOMPARE(m_session->downloads.count(), 1);
    // The queue gets the number that the list shows, in the unit of the list.
    QCOMPARE(m_session->downloads.entryAt(0).size, 2);
    QCOMPARE(m_session->downloads.entryAt(0).referer, QByteArray());
    details().selectRow(3);
    choose("m_selectedMark");
    choose("m_markedDownload");
    QCOMPARE(m_session->downloads.entryAt(1).url, "https://h:80/");

    m_session->downloads.queue({ { 0, 0 } });
    QTRY_COMPARE(m_session->downloads.entryAt(0).tag, DownloadTag::Warning); // The server sends no body.
    choose("m_resolve3xx");
    QVERIFY(!downloads().followRelocation);
    downloadManager()->close();
    choose("m_showDlm");
    QVERIFY(downloadManager()->isVisible());
    choose("m_addNumberedDL");
    QVERIFY(the<QDialog>("getDLStack").isVisible());
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
    QStringList fixed { QStringLiteral("lbl_depthTo"), QStringLiteral("lbl_sizeTo"), QStringLiteral("lbl_sizeUnit"),
        QStringLiteral("nAngezeigte"), QStringLiteral("addFilterText"), QStringLiteral("removeFilterText") };
    for (int number = 0; number < 7; ++number) {
        fixed += QStringLiteral("m_lang(%1)").arg(number);
        fixed += QStringLiteral("m_einheit(%1)").arg(number);
        fixed += QStringLiteral("panel_%1").arg(number);
    }
    QCOMPARE(wrongCaptions(*m_window, m_session->language, fixed).join(u'\n'), QString());

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
void tst_MainWindow::signalsSaveTheSettings_data()
{
    const auto row = table<int>("signal");
    row("SIGHUP", SIGHUP);
    row("SIGINT", SIGINT);
    row("SIGTERM", SIGTERM);
}

void tst_MainWindow::signalsSaveTheSettings()
{
    QFETCH(int, signal);
    const EndRequest request;
    connect(&request, &EndRequest::received, m_window.get(), &MainWindow::saveBeforeEnd);
    choose("m_showTree");
    QVERIFY(!QFile::exists(settingsFile()));
    std::raise(signal);
    QTRY_VERIFY(contentOf(settingsFile()).contains("\r\ntree=0\r\n"));
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
