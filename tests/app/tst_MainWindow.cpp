// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "support/ScriptedServer.h"
#include "support/TestSeams.h"
#include "support/Text.h"
#include "support/WindowDriver.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QSplitter>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <memory>

/// Drives the main window as a user does, by the names of its controls.
class tst_MainWindow : public QObject, AnsweredSeams {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void aSearchFromStartToFile();
    void stopsAndContinues();
    void narrowsByTheFilter_data();
    void narrowsByTheFilter();
    void withoutAutomaticsTheListWaitsForApply();
    void narrowsByTheTree();
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
    void findsTheGuide_data();
    void findsTheGuide();

private:
    void newWindow();
    void searchSite();
    [[nodiscard]] QStringList shownNames() const;
    [[nodiscard]] QString panel(int number) const
    {
        return control<QLabel>(*m_window, qPrintable(QStringLiteral("panel_%1").arg(number))).text();
    }
    [[nodiscard]] QTableView& details() const { return control<QTableView>(*m_window, "l_founds_details"); }
    [[nodiscard]] QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    void clickBranch(const QByteArray& url, qint32 level) const;

    QTemporaryDir m_folder;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<Session> m_session;
    std::unique_ptr<MainWindow> m_window;
};

void tst_MainWindow::initTestCase()
{
    QGuiApplication::setApplicationName(QStringLiteral("Tarnwick"));
    qputenv("TARNWICK_DATA", m_folder.filePath(QStringLiteral("config")).toLocal8Bit());
}

void tst_MainWindow::init()
{
    m_messages = {};
    m_dialogs = {};
    m_shell = {};
    m_server = std::make_unique<ScriptedServer>();
    m_server->page("/",
        "<a href='a/one.html'><img src='a/two.png'><a href='b/three.pdf'><a href='old'>"
        "<a href='https://h/'>");
    m_server->script("/a/one.html", { { okHeader("text/html; x"), "<a href='/b/c/four.html'>" } });
    m_server->script(
        "/a/two.png", { { "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nContent-Length: 2048\r\n\r\n" } });
    m_server->script("/b/three.pdf",
        { { "HTTP/1.1 200 OK\r\nContent-Type: application/pdf\r\nContent-Length: 5000000000\r\n\r\n" } });
    m_server->relocation("/old", "/a/one.html");
    newWindow();
}

void tst_MainWindow::newWindow()
{
    m_window.reset();
    m_session = std::make_unique<Session>();
    m_session->cookies.setCookieFolder(m_folder.path());
    m_window = std::make_unique<MainWindow>(*m_session, seams());
    m_window->show();
}

void tst_MainWindow::cleanup()
{
    m_window.reset();
    m_session.reset();
    m_server.reset();
}

void tst_MainWindow::searchSite()
{
    choose(*m_window, "m_searchNew");
    const auto& dialog = control<QDialog>(*m_window, "dialog_getSearch");
    control<QLineEdit>(dialog, "startlink").setText(QString::fromLatin1(m_server->origin()));
    click(dialog, "b_ok");
    QTRY_COMPARE(panel(1), QStringLiteral("Search finished"));
}

QStringList tst_MainWindow::shownNames() const
{
    QStringList names;
    const QAbstractItemModel& model = *details().model();
    for (int row = 0; row < model.rowCount(); ++row)
        names += model.index(row, FoundModel::Filename).data().toString();
    return names;
}

void tst_MainWindow::clickBranch(const QByteArray& url, qint32 level) const
{
    auto& tree = control<QTreeView>(*m_window, "baum");
    const QModelIndex index = qobject_cast<HostTree*>(tree.model())->find(url, level);
    QVERIFY(index.isValid());
    tree.scrollTo(index);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
}

void tst_MainWindow::aSearchFromStartToFile()
{
    QVERIFY(!control<QAction>(*m_window, "m_searchStop").isEnabled());
    searchSite();
    const QStringList all { QString(), QStringLiteral("one.html"), QStringLiteral("three.pdf"), QString(),
        QStringLiteral("two.png"), QStringLiteral("four.html") };
    QTRY_COMPARE(shownNames(), all);
    QCOMPARE(panel(2), QStringLiteral("Start: ") + QString::fromLatin1(m_server->origin()));
    QCOMPARE(panel(3), QStringLiteral("Depth: 3"));
    QCOMPARE(panel(4), QStringLiteral("Found urls: 6"));
    QTRY_COMPARE(panel(6), QStringLiteral("Shown: 6")); // told after the rows
    QCOMPARE(control<QLabel>(*m_window, "nAngezeigte").text(), QStringLiteral("6"));
    QCOMPARE(details().model()->index(2, FoundModel::Size).data().toString(), QStringLiteral("5000000000"));

    m_dialogs.choice = file("a.twk");
    choose(*m_window, "m_searchSave");
    QCOMPARE(m_dialogs.requests.first().types.first().pattern, QStringLiteral("*.twk"));
    QCOMPARE(m_dialogs.requests.first().defaultSuffix, QStringLiteral("twk"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("a.twk – Tarnwick"));
    choose(*m_window, "m_searchSave"); // Now it has a name.
    QCOMPARE(m_dialogs.requests.size(), 1);

    newWindow();
    choose(*m_window, "m_searchOpen");
    QTRY_COMPARE(shownNames(), all);
    QCOMPARE(panel(1), QStringLiteral("Search opened."));
    QVERIFY(control<QAction>(*m_window, "m_searchContinue").isEnabled());
    QCOMPARE(m_shell.recentDocuments, QStringList(file("a.twk")));
    QVERIFY(m_messages.told.isEmpty());
    auto& tree = control<QTreeView>(*m_window, "baum");
    QTRY_VERIFY(qobject_cast<HostTree*>(tree.model())->find(m_server->origin() + "/b/c/", 7).isValid());
}

void tst_MainWindow::stopsAndContinues()
{
    m_server->script("/a/one.html", { { okHeader("text/html") }, Afterwards::Stall });
    choose(*m_window, "m_searchNew");
    const auto& dialog = control<QDialog>(*m_window, "dialog_getSearch");
    control<QLineEdit>(dialog, "startlink").setText(QString::fromLatin1(m_server->origin()));
    click(dialog, "b_ok");
    QVERIFY(!control<QAction>(*m_window, "m_searchNew").isEnabled());
    QVERIFY(control<QWidget>(*m_window, "busy").isVisible());
    QTRY_COMPARE(panel(4), QStringLiteral("Found urls: 5")); // The sixth has relocated and is gone.
    choose(*m_window, "m_searchStop");
    QCOMPARE(panel(1), QStringLiteral("Search stopped"));
    QVERIFY(!control<QWidget>(*m_window, "busy").isVisible());
    choose(*m_window, "m_searchContinue");
    QTRY_COMPARE(panel(1), QStringLiteral("Search finished"));
}

void tst_MainWindow::narrowsByTheFilter_data()
{
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QList<int>>("bounds");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* title, const QStringList& clicks, const QStringList& listed,
                         const QList<int>& bounds, const char* shown) {
        QTest::newRow(title) << clicks << listed << bounds << QString::fromLatin1(shown);
    };
    const auto name = [](const char* text) {
        return QStringList(QString::fromLatin1(text));
    };
    row("whitelist of types", name("mimeFilterSwitch(1)"), name("image/png"), {}, "two.png");
    row("blacklist of types", name("mimeFilterSwitch(2)"), name("application/pdf"), {}, ",one.html,,two.png,four.html");
    row("an empty whitelist of types", name("mimeFilterSwitch(1)"), {}, {}, "");
    row("an empty blacklist of types", name("mimeFilterSwitch(2)"), {}, {}, ",one.html,three.pdf,,two.png,four.html");
    row("depth", name("c_useMaxDepth"), {}, { 0, 0, 0, 0 }, "");
    row("depth of one", name("c_useMaxDepth"), {}, { 1, 1, 0, 0 }, "one.html,three.pdf,,two.png");
    row("size", name("c_useSize"), {}, { 0, 0, 2000, 2048 }, "two.png");
    row("a size range that is none", name("c_useSize"), {}, { 0, 0, 9, 1 }, "");
}

void tst_MainWindow::narrowsByTheFilter()
{
    QFETCH(QStringList, clicks);
    QFETCH(QStringList, listed);
    QFETCH(QList<int>, bounds);
    searchSite();
    if (!bounds.isEmpty()) {
        const char* const inputs[] = { "minDepth", "maxDepth", "minSize", "maxSize" };
        for (int input = 0; input < 4; ++input)
            control<QSpinBox>(*m_window, inputs[input]).setValue(bounds[input]);
    }
    QAbstractItemModel& types = *control<QListView>(*m_window, "mimeListe").model();
    for (int row = 0; row < types.rowCount(); ++row) {
        const QModelIndex type = types.index(row, 0);
        if (listed.contains(type.data().toString()))
            types.setData(type, Qt::Checked, Qt::CheckStateRole);
    }
    for (const QString& name : clicks)
        click(*m_window, qPrintable(name));
    QFETCH(QString, shown);
    QTRY_COMPARE(shownNames().join(u','), shown);
    QTRY_COMPARE(panel(6), QStringLiteral("Shown: %1").arg(shownNames().size()));
}

void tst_MainWindow::withoutAutomaticsTheListWaitsForApply()
{
    searchSite();
    choose(*m_window, "m_filterAutoApply");
    click(*m_window, "urlFilterSwitch(1)");
    control<QLineEdit>(*m_window, "neuFilterText").setText(QStringLiteral(".pdf"));
    click(*m_window, "addFilterText");
    choose(*m_window, "m_einheit(1)");
    clickBranch(m_server->origin() + '/', 0);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(shownNames().size(), 6);
    QCOMPARE(details().model()->index(4, FoundModel::Size).data().toString(), QStringLiteral("2048"));
    click(*m_window, "b_filterAkt");
    QTRY_COMPARE(shownNames(), QStringList(QStringLiteral("three.pdf")));

    choose(*m_window, "m_filterAutoApply");
    control<QListWidget>(*m_window, "filterTexte").item(0)->setSelected(true);
    click(*m_window, "removeFilterText");
    QTRY_COMPARE(shownNames().size(), 0);
    click(*m_window, "urlFilterSwitch(2)");
    QTRY_COMPARE(shownNames().size(), 6);
}

void tst_MainWindow::narrowsByTheTree()
{
    searchSite();
    clickBranch(m_server->origin() + "/b/", 6);
    QTRY_COMPARE(shownNames(), (QStringList { QStringLiteral("three.pdf"), QStringLiteral("four.html") }));
    clickBranch(m_server->origin() + "/b/c/", 7);
    QTRY_COMPARE(shownNames(), QStringList(QStringLiteral("four.html")));
    // The tree is made anew at the end, since an item has relocated; what was chosen stays chosen.
    const auto& tree = control<QTreeView>(*m_window, "baum");
    QCOMPARE(tree.currentIndex().data().toString(), QStringLiteral("c"));
    qobject_cast<HostTree*>(tree.model())->removing(m_session->foundItems.getLetzter());
    QSignalSpy remade(tree.model(), &QAbstractItemModel::modelReset);
    qobject_cast<HostTree*>(tree.model())->rebuild();
    QTRY_COMPARE(remade.count(), 1);
    QCOMPARE(tree.currentIndex().data().toString(), QStringLiteral("c"));
    QVERIFY(tree.isExpanded(tree.currentIndex().parent()));
    clickBranch(m_server->origin(), 0);
    QTRY_COMPARE(shownNames().size(), 6);

    // A new search begins at the root.
    clickBranch(m_server->origin() + "/b/", 6);
    searchSite();
    QTRY_COMPARE(shownNames().size(), 6);
}

void tst_MainWindow::changesUnits()
{
    searchSite();
    const auto size = [this] {
        return details().model()->index(4, FoundModel::Size).data().toString();
    };
    choose(*m_window, "m_einheit(1)");
    QTRY_COMPARE(size(), QStringLiteral("2"));
    control<QSpinBox>(*m_window, "minSize").setValue(2);
    control<QSpinBox>(*m_window, "maxSize").setValue(2);
    click(*m_window, "c_useSize");
    QTRY_COMPARE(shownNames(), QStringList(QStringLiteral("two.png")));
    choose(*m_window, "m_einheit(2)");
    QTRY_COMPARE(shownNames(), QStringList());
}

void tst_MainWindow::keysReachTheirCommands()
{
    searchSite();
    QApplication::setActiveWindow(m_window.get());
    QTRY_VERIFY(m_window->isActiveWindow());
    details().setFocus();
    QTest::keyClick(&details(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&details(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1String("\r\n")), 5);
    QTest::keyClick(&details(), Qt::Key_F7);
    QTest::keyClick(&details(), Qt::Key_F8);
    QVERIFY(!control<QWidget>(*m_window, "fr_filter").isVisible());
    QVERIFY(!control<QWidget>(*m_window, "baum").isVisible());
    QTest::keyClick(&details(), Qt::Key_1, Qt::ControlModifier);
    QVERIFY(control<QListView>(*m_window, "l_founds_icons").isVisible());
    QTest::keyClick(m_window.get(), Qt::Key_N, Qt::ControlModifier);
    auto& dialog = control<QDialog>(*m_window, "dialog_getSearch");
    QVERIFY(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void tst_MainWindow::rowsAreTheSameInEveryMode()
{
    searchSite();
    auto& icons = control<QListView>(*m_window, "l_founds_icons");
    details().selectRow(2);
    QSet<QPoint> places;
    for (const char* const mode : { "m_listMode(0)", "m_listMode(1)", "m_listMode(2)" }) {
        choose(*m_window, mode);
        QVERIFY(icons.isVisible() && !details().isVisible());
        QCOMPARE(icons.selectionModel()->selectedRows().value(0).row(), 2);
        QCOMPARE(icons.model()->rowCount(), 6);
        places += icons.visualRect(icons.model()->index(5, 0)).topLeft();
    }
    QCOMPARE(places.size(), 3);
    choose(*m_window, "m_listMode(3)");
    QVERIFY(!icons.isVisible() && details().isVisible());
}

void tst_MainWindow::marksSelectsAndCopies()
{
    searchSite();
    const auto copied = [this] {
        QString text = QGuiApplication::clipboard()->text();
        return text.remove(QString::fromLatin1(m_server->origin()));
    };
    details().selectRow(1);
    choose(*m_window, "m_selectedMark");
    choose(*m_window, "m_selectedInvert");
    choose(*m_window, "m_selectedToClipboard");
    QCOMPARE(copied(), QStringLiteral("/\r\n/b/three.pdf\r\nhttps://h:80/\r\n/a/two.png\r\n/b/c/four.html"));
    choose(*m_window, "m_markedToClipboard");
    QCOMPARE(copied(), QStringLiteral("/a/one.html"));
    details().selectRow(2);
    choose(*m_window, "m_markedSelect");
    choose(*m_window, "m_selectedToClipboard");
    QCOMPARE(copied(), QStringLiteral("/a/one.html\r\n/b/three.pdf"));
    details().setCurrentIndex(details().model()->index(5, FoundModel::Url));
    QTest::keyClick(&details(), Qt::Key_Space);
    choose(*m_window, "m_markedToClipboard");
    QCOMPARE(copied(), QStringLiteral("/a/one.html\r\n/b/c/four.html"));
    choose(*m_window, "m_selectAll");
    choose(*m_window, "m_selectedDemark");
    choose(*m_window, "m_markedToClipboard"); // Nothing is marked, so the clipboard stays.
    QCOMPARE(copied(), QStringLiteral("/a/one.html\r\n/b/c/four.html"));
}

void tst_MainWindow::downloadsRows()
{
    m_session->downloads.settings().target = m_folder.path() + u'/';
    m_session->downloads.settings().overwrite = true;
    m_session->requestPrefs.useReferrer = true;
    searchSite();
    const auto manager = []() -> QWidget* {
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("DLManager") && widget->isVisible())
                return widget;
        }
        return nullptr;
    };
    choose(*m_window, "m_autoOpenDLM");
    choose(*m_window, "m_selectedDownload"); // with no row selected
    QVERIFY(!manager());
    choose(*m_window, "m_autoOpenDLM");
    choose(*m_window, "m_markedDownload");
    QVERIFY(manager());
    QCOMPARE(m_session->downloads.count(), 0);

    choose(*m_window, "m_einheit(1)");
    QTRY_COMPARE(details().model()->index(4, FoundModel::Size).data().toString(), QStringLiteral("2"));
    m_session->downloads.settings().startImmediately = false;
    details().selectRow(4);
    choose(*m_window, "m_selectedDownload");
    QCOMPARE(m_session->downloads.count(), 1);
    // The number that the list shows, in its unit.
    QCOMPARE(m_session->downloads.entryAt(0).size, 2);
    QCOMPARE(m_session->downloads.entryAt(0).referer, QByteArray());
    details().selectRow(3);
    choose(*m_window, "m_selectedMark");
    choose(*m_window, "m_markedDownload");
    QCOMPARE(m_session->downloads.entryAt(1).url, "https://h:80/");

    m_session->downloads.settings().startImmediately = true;
    m_session->downloads.queue({ { 0, 0 } });
    QTRY_COMPARE(m_session->downloads.entryAt(0).tag, DownloadTag::Warning); // its body never came
    choose(*m_window, "m_resolve3xx");
    QVERIFY(!m_session->downloads.settings().followRelocation);
    manager()->close();
    QVERIFY(!manager());
    choose(*m_window, "m_showDlm");
    QVERIFY(manager());
    choose(*m_window, "m_addNumberedDL");
    QVERIFY(control<QDialog>(*m_window, "getDLStack").isVisible());
}

void tst_MainWindow::speaksEveryLanguage_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("finished");
    QTest::addColumn<QString>("sizeHeader");
    QTest::addColumn<QString>("clashes");
    QTest::newRow("English") << 0 << QStringLiteral("Search finished") << QStringLiteral("Size")
                             << QStringLiteral("m_selectedDemark");
    QTest::newRow("German") << 1 << QStringLiteral("Suche abgeschlossen") << QStringLiteral("Größe") << QString();
    QTest::newRow("French") << 2 << QStringLiteral("Recherche terminée") << QStringLiteral("Taille") << QString();
}

/// The entries whose access key another one of the same menu has already.
static QStringList accessKeyClashes(const QList<QAction*>& entries)
{
    QStringList clashes;
    QSet<QChar> taken;
    for (const QAction* const entry : entries) {
        if (entry->menu())
            clashes += accessKeyClashes(entry->menu()->actions());
        const qsizetype mark = entry->text().indexOf(u'&');
        const QChar key = mark < 0 ? QChar() : entry->text().at(mark + 1).toLower();
        if (!key.isNull() && taken.contains(key))
            clashes += entry->objectName();
        taken += key;
    }
    return clashes;
}

void tst_MainWindow::speaksEveryLanguage()
{
    QFETCH(int, index);
    searchSite();
    choose(*m_window, qPrintable(QStringLiteral("m_lang(%1)").arg(index)));
    QTEST(panel(1), "finished");
    QTEST(details().model()->headerData(FoundModel::Size, Qt::Horizontal).toString(), "sizeHeader");
    QStringList fixed { QStringLiteral("lbl_depthTo"), QStringLiteral("lbl_sizeTo"), QStringLiteral("lbl_sizeUnit"),
        QStringLiteral("nAngezeigte"), QStringLiteral("addFilterText"), QStringLiteral("removeFilterText") };
    for (int number = 0; number < 7; ++number) {
        fixed += QStringLiteral("m_lang(%1)").arg(number);
        fixed += QStringLiteral("m_einheit(%1)").arg(number);
        fixed += QStringLiteral("panel_%1").arg(number);
    }
    QCOMPARE(wrongCaptions(*m_window, m_session->language, fixed).join(u'\n'), QString());
    QTEST(accessKeyClashes(m_window->menuBar()->actions()).join(u' '), "clashes");
}

void tst_MainWindow::loadsALanguageFile()
{
    QVERIFY(writeFile(file("x.lng"), "main.m_quit=Basta\nMain.x=\nlang.search_noSearch=niente\n"));
    m_dialogs.choice = file("x.lng");
    choose(*m_window, "m_externLang");
    QCOMPARE(m_messages.asked.size(), 1);
    QCOMPARE(control<QAction>(*m_window, "m_quit").text(), QStringLiteral("Basta"));
    QCOMPARE(panel(1), QStringLiteral("niente"));
    QVERIFY(!control<QAction>(*m_window, "m_lang(0)").isChecked());
    choose(*m_window, "m_lang(0)");
    QCOMPARE(panel(1), QStringLiteral("no Search"));
    QVERIFY(control<QAction>(*m_window, "m_lang(0)").isChecked());
}

void tst_MainWindow::opensFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("told");
    const auto row = [](const char* title, const QByteArray& content, int rows, const QStringList& told) {
        QTest::newRow(title) << content << rows << told;
    };
    row("parameters alone", "StartUrl=http://h/\r\n", 0, {});
    row("two lines that are not understood", "StartUrl=x\r\nFoo=1\r\nbar\r\nResults:\r\nhttp://h:80/\r\n", 1,
        { QStringLiteral("o.twk\n2: Invalid attribut:: Foo\n3: Invalid attribut:: bar") });
    row("too many of them", "Depth=1\r\n" + QByteArray("x=\r\n").repeated(1000), 0,
        { QStringLiteral("\n11: Invalid attribut:: x\n... and 990 more") });
    row("a truncated file", "Results:\r\nhttp://h:80/\r\nhttp://h", 1, { QStringLiteral("Unexpected end of file") });
    row("no search file", "hello\r\n", 6, { QStringLiteral("Error while opening: this is not a search file") });
}

void tst_MainWindow::opensFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, told);
    searchSite();
    QVERIFY(writeFile(file("o.twk"), content));
    m_window->open(file("o.twk"));
    QTRY_COMPARE(m_messages.told.size() + (told.isEmpty() ? 1 : 0), 1);
    if (!told.isEmpty())
        QVERIFY2(m_messages.told.first().text.endsWith(told.first()), qPrintable(m_messages.told.first().text));
    QFETCH(int, rows);
    QTRY_COMPARE(shownNames().size(), rows);
}

void tst_MainWindow::opensADroppedFile()
{
    QVERIFY(writeFile(file("d.twk"), "Results:\r\nhttp://h:80/dropped\r\n"));
    QMimeData data;
    data.setUrls({ QUrl::fromLocalFile(file("d.twk")) });
    QDragEnterEvent enter({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(m_window.get(), &drop);
    QTRY_COMPARE(shownNames(), QStringList(QStringLiteral("dropped")));
    // A page from a browser is no file.
    data.setUrls({ QUrl(QStringLiteral("http://h/x.twk")) });
    QDragEnterEvent page({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, {});
    page.ignore();
    QCoreApplication::sendEvent(m_window.get(), &page);
    QVERIFY(!page.isAccepted());
}

void tst_MainWindow::tellsWhatCannotBeSaved()
{
    m_dialogs.choice = file("no/such/folder/x.twk");
    choose(*m_window, "m_searchSaveAs");
    QCOMPARE(m_messages.told.size(), 1);
    QCOMPARE(m_messages.told.first().title, QStringLiteral("Error while saving"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Tarnwick"));
}

void tst_MainWindow::findsTheGuide_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("page");
    QTest::newRow("English") << 0 << QStringLiteral("english.html");
    QTest::newRow("German") << 1 << QStringLiteral("deutsch.html");
    QTest::newRow("French") << 2 << QStringLiteral("français.html");
}

void tst_MainWindow::findsTheGuide()
{
    QFETCH(int, language);
    choose(*m_window, qPrintable(QStringLiteral("m_lang(%1)").arg(language)));
    choose(*m_window, "m_goHelpfile");
    const QString page = QFileInfo(m_shell.openedFiles.value(0)).fileName();
    QTEST(page, "page");
    const QDir guide(QStringLiteral(TARNWICK_GUIDE));
    static const QRegularExpression picture(QStringLiteral("src=\"([^\"]+)\""));
    QVERIFY(guide.exists(page));
    for (const auto& match : picture.globalMatch(QString::fromUtf8(contentOf(guide.filePath(page)))))
        QVERIFY2(guide.exists(match.captured(1)), qPrintable(match.captured(1)));
    QVERIFY(m_messages.told.isEmpty());
    m_session->language.set("lang.helpfile", QStringLiteral("../evil.exe"));
    choose(*m_window, "m_goHelpfile");
    QCOMPARE(m_shell.openedFiles.value(1), QString());
    m_shell.opens = false;
    choose(*m_window, "m_goHelpfile");
    QCOMPARE(m_messages.told.value(0).text, m_session->language.text("lang.errHelp"));
    choose(*m_window, "m_about");
    QVERIFY(m_messages.told.value(1).text.contains(QLatin1String(qVersion())));
}

QTEST_MAIN(tst_MainWindow)

#include "tst_MainWindow.moc"
