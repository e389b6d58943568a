// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/zahlenEingabe.h"
#include "results/ResultColumns.h"
#include "results/window/HostTree.h"
#include "results/window/MimeModel.h"
#include "support/WindowFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QListWidget>
#include <QSignalSpy>
#include <QTreeView>

/// Narrows the results in the main window, and works on their rows, as a user does.
class tst_ResultsArea : public WindowFixture {
    Q_OBJECT

private slots:
    void init();
    void narrowsByTheFilter();
    void withoutAutomaticsTheListWaitsForApply();
    void narrowsByTheTree();
    void theListShowsTheCurrentBranch();
    void tellsOfAHiddenFilter();
    void answersPassTheFilterWhileSearching();
    void aDoubleClickOpensItsRow();
    void changesUnits();
    void rowsAreTheSameInEveryMode();
    void marksSelectsAndCopies();
    void downloadsRows();

private:
    [[nodiscard]] HostTree& hosts() const { return *qobject_cast<HostTree*>(the<QTreeView>("baum").model()); }
    void clickBranch(const QByteArray& url, qint32 level) const;
};

void tst_ResultsArea::init()
{
    WindowFixture::init();
    serveSite();
    start();
}

void tst_ResultsArea::clickBranch(const QByteArray& url, qint32 level) const
{
    auto& tree = the<QTreeView>("baum");
    const QModelIndex index = hosts().find(url, level);
    QVERIFY(index.isValid());
    tree.scrollTo(index);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
}

void tst_ResultsArea::narrowsByTheFilter()
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

void tst_ResultsArea::withoutAutomaticsTheListWaitsForApply()
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

void tst_ResultsArea::narrowsByTheTree()
{
    searchToEnd();
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

void tst_ResultsArea::theListShowsTheCurrentBranch()
{
    searchToEnd();
    auto& tree = the<QTreeView>("baum");
    tree.expandAll();
    const QByteArray origin = m_server->origin();
    clickBranch(origin + "/a/", 6);
    QTRY_COMPARE(shownNames(), "one.html,two.png");
    QTest::keyClick(&tree, Qt::Key_Down);
    QTRY_COMPARE(shownNames(), "three.pdf,four.html");
    const QModelIndex below = hosts().find(origin + "/b/c/", 7);
    tree.scrollTo(below);
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, tree.visualRect(below).center());
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

void tst_ResultsArea::tellsOfAHiddenFilter()
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

void tst_ResultsArea::answersPassTheFilterWhileSearching()
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

void tst_ResultsArea::aDoubleClickOpensItsRow()
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

void tst_ResultsArea::changesUnits()
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

void tst_ResultsArea::rowsAreTheSameInEveryMode()
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

void tst_ResultsArea::marksSelectsAndCopies()
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

void tst_ResultsArea::downloadsRows()
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

QTEST_MAIN(tst_ResultsArea)

#include "tst_ResultsArea.moc"
