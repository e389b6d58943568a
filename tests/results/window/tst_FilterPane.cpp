// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/zahlenEingabe.h"
#include "results/ResultFilter.h"
#include "results/window/FilterPane.h"
#include "support/Table.h"
#include "support/WindowDriver.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_FilterPane : public QObject {
    Q_OBJECT

private slots:
    void init();
    void everyChangeIsTold_data();
    void everyChangeIsTold();
    void aBoundIsTakenOnceItIsTyped_data();
    void aBoundIsTakenOnceItIsTyped();
    void listsAndBoundsAreOnWithTheirSwitch();
    void removesSelectedParts_data();
    void removesSelectedParts();
    void addsParts();
    void typesStaySortedAndBounded();
    void olderTypesMakeRoom();
    void showsWhatOthersHaveSet();
    void resetsAndLiftsTheBranch();

private:
    [[nodiscard]] QWidget& pane() const { return *m_pane; }
    [[nodiscard]] bool isEnabled(const char* name) const { return control<QWidget>(pane(), name).isEnabled(); }

    ResultFilter m_filter;
    std::unique_ptr<FilterPane> m_pane;
};

void tst_FilterPane::init()
{
    m_filter = {};
    m_pane = std::make_unique<FilterPane>(m_filter, nullptr);
    m_pane->mimeTypes().meet("text/html");
    m_pane->show();
    QApplication::setActiveWindow(m_pane.get());
}

void tst_FilterPane::everyChangeIsTold_data()
{
    QTest::addColumn<QString>("control");
    for (const char* const name :
        { "mimeFilterSwitch(1)", "mimeFilterSwitch(2)", "urlFilterSwitch(1)", "urlFilterSwitch(2)", "c_useMaxDepth",
            "c_useSize", "minDepth", "maxDepth", "minSize", "maxSize", "mimeListe" })
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_FilterPane::everyChangeIsTold()
{
    QFETCH(QString, control);
    QSignalSpy changed(m_pane.get(), &FilterPane::filterChanged);
    if (m_pane->findChild<QAbstractButton*>(control))
        toggle(pane(), qPrintable(control));
    else if (auto* const bound = m_pane->findChild<zahlenEingabe*>(control))
        bound->setValue(5);
    else
        m_pane->mimeTypes().setData(m_pane->mimeTypes().index(0), Qt::Checked, Qt::CheckStateRole);
    QTRY_COMPARE(changed.count(), 1);
    const ResultFilter none;
    const bool same = m_filter.mimeSwitch == none.mimeSwitch && m_filter.urlSwitch == none.urlSwitch
        && m_filter.depth == none.depth && m_filter.size == none.size && !m_filter.mimeListe.isListed("text/html");
    QVERIFY(!same);
}

void tst_FilterPane::aBoundIsTakenOnceItIsTyped_data()
{
    const auto row = table<int>("key");
    row("by Return", int { Qt::Key_Return });
    row("by leaving the field", int { Qt::Key_Tab });
    row("by Apply", int { Qt::Key_A });
    row("after a pause", 0);
}

void tst_FilterPane::aBoundIsTakenOnceItIsTyped()
{
    QFETCH(int, key);
    click(pane(), "c_useSize");
    auto& bound = control<zahlenEingabe>(pane(), "minSize");
    bound.setFocus();
    bound.selectAll();
    QSignalSpy changed(m_pane.get(), &FilterPane::filterChanged);
    QTest::keyClicks(&bound, QStringLiteral("5000000000"));
    QCOMPARE(m_filter.size.min, 0);
    if (key == Qt::Key_A)
        click(pane(), "b_filterAkt");
    else if (key != 0)
        QTest::keyClick(&bound, static_cast<Qt::Key>(key));
    if (key != 0)
        QCOMPARE(changed.count(), 1);
    QTRY_COMPARE(m_filter.size.min, 5'000'000'000);
    QTRY_COMPARE(changed.count(), 1);
}

void tst_FilterPane::listsAndBoundsAreOnWithTheirSwitch()
{
    for (const char* const name : { "mimeListe", "filterTexte", "neuFilterText", "addFilterText", "removeFilterText",
             "minDepth", "maxDepth", "minSize", "maxSize" })
        QVERIFY2(!isEnabled(name), name);
    for (const char* const name : { "mimeFilterSwitch(1)", "urlFilterSwitch(2)", "c_useMaxDepth", "c_useSize" })
        click(pane(), name);
    for (const char* const name :
        { "mimeListe", "filterTexte", "neuFilterText", "minDepth", "maxDepth", "minSize", "maxSize" })
        QVERIFY2(isEnabled(name), name);
    QVERIFY(!isEnabled("addFilterText") && !isEnabled("removeFilterText"));
    QSignalSpy closed(m_pane.get(), &FilterPane::closeClicked);
    QSignalSpy applied(m_pane.get(), &FilterPane::applyClicked);
    click(pane(), "b_closeFilter");
    click(pane(), "b_filterAkt");
    QCOMPARE(closed.count(), 1);
    QCOMPARE(applied.count(), 1);
}

void tst_FilterPane::removesSelectedParts_data()
{
    const auto row = table<QList<int>, QByteArray, QList<int>>("selected", "left", "selectedThen");
    row("one in the middle", QList<int> { 1 }, "acd", QList<int> { 1 });
    row("neighbours", QList<int> { 0, 1 }, "cd", QList<int> { 0 });
    row("the last", QList<int> { 3 }, "abc", QList<int> { 2 });
    row("apart", QList<int> { 0, 2 }, "bd", QList<int> { 1 });
    row("all", QList<int> { 0, 1, 2, 3 }, {}, QList<int>());
}

void tst_FilterPane::removesSelectedParts()
{
    QFETCH(QList<int>, selected);
    m_filter.filterTexte = { "a", "b", "c", "d" };
    m_filter.urlSwitch = FilterSwitch::Whitelist;
    m_pane->showFilter();
    auto& parts = control<QListWidget>(pane(), "filterTexte");
    for (const int row : selected)
        parts.item(row)->setSelected(true);
    QSignalSpy changed(m_pane.get(), &FilterPane::filterChanged);
    parts.setFocus();
    QTest::keyClick(&parts, Qt::Key_Delete);
    QCOMPARE(changed.count(), 1);
    QTEST(m_filter.filterTexte.join(), "left");
    QList<int> rows;
    for (const QModelIndex& index : parts.selectionModel()->selectedRows())
        rows += index.row();
    QTEST(rows, "selectedThen");
}

void tst_FilterPane::addsParts()
{
    click(pane(), "urlFilterSwitch(1)");
    auto& entry = control<QLineEdit>(pane(), "neuFilterText");
    QTest::keyClicks(&entry, QStringLiteral(".pdf"));
    QTest::keyClick(&entry, Qt::Key_Return);
    QVERIFY(entry.text().isEmpty());
    QTest::keyClick(&entry, Qt::Key_Return);
    entry.setText(QStringLiteral("x"));
    click(pane(), "addFilterText");
    QCOMPARE(m_filter.filterTexte, (QList<QByteArray> { ".pdf", "x" }));
}

void tst_FilterPane::typesStaySortedAndBounded()
{
    MimeModel& types = m_pane->mimeTypes();
    for (const char* const type : { "image/png", "TEXT/HTML", "", "application/x", "image/png" })
        types.meet(type);
    QStringList shown;
    for (int row = 0; row < types.rowCount(); ++row)
        shown += types.index(row).data().toString();
    QCOMPARE(shown.join(u' '), QStringLiteral("application/x image/png text/html"));
    for (size_t number = 0; number < MimeTypeList::most * 2; ++number)
        types.meet("x/" + QByteArray::number(number));
    QCOMPARE(static_cast<size_t>(types.rowCount()), MimeTypeList::most);
}

void tst_FilterPane::olderTypesMakeRoom()
{
    MimeModel& types = m_pane->mimeTypes();
    const auto fill = [&](const QByteArray& prefix) {
        for (size_t number = 0; number < MimeTypeList::most; ++number)
            types.meet(prefix + QByteArray::number(number));
    };
    fill("a/");
    for (const int row : { 0, 1 })
        types.setData(types.index(row), Qt::Checked, Qt::CheckStateRole);
    types.forgetMet();
    types.meet("image/png");
    QVERIFY(m_filter.mimeListe.contains("image/png"));
    QCOMPARE(static_cast<size_t>(types.rowCount()), MimeTypeList::most);
    QCOMPARE(m_filter.mimeListe.entries()[1].listed, true); // those that are checked go last
    fill("b/");
    QVERIFY(m_filter.mimeListe.contains("image/png"));
    QVERIFY(!m_filter.mimeListe.contains("a/0"));
    QCOMPARE(static_cast<size_t>(types.rowCount()), MimeTypeList::most);
}

void tst_FilterPane::resetsAndLiftsTheBranch()
{
    const auto& branch = control<QWidget>(pane(), "b_liftBranch");
    QVERIFY(!branch.isVisible());
    m_filter.filterTexte = { "x" };
    for (const char* const button : { "b_liftBranch", "b_resetFilter" }) {
        m_filter.urlSwitch = FilterSwitch::Whitelist;
        m_filter.depth.used = true;
        m_filter.setBranch({ "http://h", 1 });
        m_pane->showFilter();
        QVERIFY(branch.isVisible());
        QSignalSpy changed(m_pane.get(), &FilterPane::filterChanged);
        click(pane(), button);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!branch.isVisible() && !m_filter.branch);
        QVERIFY(m_filter.isActive() == (button == QByteArrayView("b_liftBranch")));
    }
    QVERIFY(control<QAbstractButton>(pane(), "urlFilterSwitch(0)").isChecked());
    QVERIFY(!control<QAbstractButton>(pane(), "c_useMaxDepth").isChecked());
    QCOMPARE(m_filter.filterTexte.size(), 1);
}

void tst_FilterPane::showsWhatOthersHaveSet()
{
    m_filter.depth = { true, 1, 2 };
    m_filter.size = { true, 3, 4 };
    m_filter.mimeSwitch = FilterSwitch::Blacklist;
    QSignalSpy changed(m_pane.get(), &FilterPane::filterChanged);
    m_pane->showFilter();
    m_pane->setSizeUnit(1024, QStringLiteral("kiB"));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(control<zahlenEingabe>(pane(), "minDepth").value(), 1);
    QCOMPARE(control<zahlenEingabe>(pane(), "maxSize").value(), 4);
    QVERIFY(control<QAbstractButton>(pane(), "mimeFilterSwitch(2)").isChecked());
    QCOMPARE(control<QLabel>(pane(), "lbl_sizeUnit").text(), QStringLiteral("kiB"));
    QCOMPARE(m_filter.size.max, 4);
}

QTEST_MAIN(tst_FilterPane)

#include "tst_FilterPane.moc"
