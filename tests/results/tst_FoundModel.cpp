// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/FoundModel.h"
#include "base/lang.h"
#include "results/ResultFilter.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_FoundModel : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsAnItemInItsColumns();
    void sizesAreInTheUnitOfTheLastRebuild_data();
    void sizesAreInTheUnitOfTheLastRebuild();
    void rowsComeOncePerPass();
    void stateTextYieldsToTheStatusNumber();
    void serversHaveNoSayInToolTips();
    void itemsWithoutARowAreLeftAlone();
    void rebuildsToWhatTheFilterShows();
    void fewChangesKeepWhatIsSelected();
    void aLaterRebuildOvertakes();
    void coversRows_data();
    void coversRows();

private:
    FundKnoten* add(const QByteArray& url);
    [[nodiscard]] QString cell(int row, int column) const;
    [[nodiscard]] QByteArrayList shownUrls() const;
    [[nodiscard]] bool rebuild();

    FundListe m_list;
    ResultFilter m_filter;
    LanguageTable m_language;
    std::unique_ptr<FoundModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void tst_FoundModel::init()
{
    m_list.clear();
    m_filter = {};
    m_model = std::make_unique<FoundModel>(m_list, m_filter, m_language, nullptr);
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void tst_FoundModel::cleanup()
{
    m_tester.reset();
    m_model.reset();
}

FundKnoten* tst_FoundModel::add(const QByteArray& url)
{
    FundStück item;
    item.adresse = url;
    FundKnoten* const knoten = m_list.add(item);
    m_model->offer(knoten);
    return knoten;
}

QString tst_FoundModel::cell(int row, int column) const
{
    return m_model->index(row, column).data().toString();
}

QByteArrayList tst_FoundModel::shownUrls() const
{
    QByteArrayList urls;
    for (int row = 0; row < m_model->rowCount(); ++row)
        urls += m_model->itemAt(row).adresse;
    return urls;
}

bool tst_FoundModel::rebuild()
{
    QSignalSpy rebuilt(m_model.get(), &FoundModel::rebuilt);
    m_model->rebuild();
    return rebuilt.count() == 1 || rebuilt.wait();
}

void tst_FoundModel::showsAnItemInItsColumns()
{
    FundKnoten* const knoten = add("http://h:80/a/b.html?x");
    FundStück& item = knoten->inhalt;
    item.mimeTyp = "text/html; charset=x";
    item.groesse = 5'000'000'000;
    item.tiefe = 2;
    item.statusCode = 404;
    item.referenzTyp = ReferenzTyp::AnySrc;
    item.sprache = "de";
    QTRY_COMPARE(m_model->rowCount(), 1);
    const QStringList expected { QStringLiteral("b.html?x"), QStringLiteral("text/html; charset=x"),
        QStringLiteral("5000000000"), QStringLiteral("2"), QStringLiteral("404"), QStringLiteral("? src"),
        QStringLiteral("de"), QStringLiteral("http://h:80/a/b.html?x") };
    for (int column = 0; column < FoundModel::ColumnCount; ++column)
        QCOMPARE(cell(0, column), expected[column]);
    QCOMPARE(m_model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Filename"));
    QVERIFY(m_model->index(0, FoundModel::Size).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    QVERIFY(!m_model->index(0, FoundModel::Url).data(Qt::TextAlignmentRole).isValid());
    QCOMPARE(m_model->headerData(7, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Url"));
}

void tst_FoundModel::sizesAreInTheUnitOfTheLastRebuild_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<qint64>("unit");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* title, qint64 size, qint64 unit, const char* before, const char* after) {
        QTest::newRow(title) << size << unit << QString::fromLatin1(before) << QString::fromLatin1(after);
    };
    row("just below a kibibyte", 1023, 1024, "1023", "0");
    row("a kibibyte", 1024, 1024, "1024", "1");
    row("just below a mebibyte", 1048575, 1048576, "1048575", "0");
    row("unknown", -1, 1024, "?", "?");
}

void tst_FoundModel::sizesAreInTheUnitOfTheLastRebuild()
{
    QFETCH(qint64, size);
    QFETCH(qint64, unit);
    add("http://h:80/")->inhalt.groesse = size;
    QTRY_COMPARE(m_model->rowCount(), 1);
    m_filter.sizeUnit = unit;
    QTEST(cell(0, FoundModel::Size), "before");
    QVERIFY(rebuild());
    QTEST(cell(0, FoundModel::Size), "after");
}

void tst_FoundModel::rowsComeOncePerPass()
{
    QSignalSpy inserted(m_model.get(), &FoundModel::rowsInserted);
    QSignalSpy counted(m_model.get(), &FoundModel::countChanged);
    for (int number = 0; number < 100; ++number)
        QCOMPARE(add("http://h:80/" + QByteArray::number(number))->inhalt.listIndex, number + 1);
    QCOMPARE(m_model->rowCount(), 0);
    QTRY_COMPARE(m_model->rowCount(), 100);
    QCOMPARE(inserted.count(), 1);
    QCOMPARE(counted.count(), 1);
}

void tst_FoundModel::stateTextYieldsToTheStatusNumber()
{
    FundKnoten* const knoten = add("http://h:80/");
    QTRY_COMPARE(m_model->rowCount(), 1);
    m_model->report(knoten, { FetchEvent::Connecting, {} });
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("Connecting"));
    m_language.selectBuiltIn(LanguageTable::German);
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("Verbindungsaufbau"));
    m_language.selectBuiltIn(LanguageTable::English);

    knoten->inhalt.statusCode = 200;
    QSignalSpy changed(m_model.get(), &FoundModel::dataChanged);
    m_model->refresh(knoten);
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("200"));
    QTRY_VERIFY(changed.count() > 0);
    m_model->report(knoten, { FetchEvent::Relocated, "/x" });
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("Relocated: /x"));
    QVERIFY(rebuild());
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("200"));
}

void tst_FoundModel::serversHaveNoSayInToolTips()
{
    FundKnoten* const hostile = add("http://h:80/<img src=//x/y>" + QByteArray(60'000, 'a'));
    FundKnoten* const failed = add("http://h:80/failed");
    add("https://h:443/");
    failed->inhalt.zustand = Zustand::Fehlgeschlagen;
    QTRY_COMPARE(m_model->rowCount(), 3);
    const auto toolTip = [this](int row, int column) {
        return m_model->index(row, column).data(Qt::ToolTipRole).toString();
    };
    QVERIFY(toolTip(0, FoundModel::Filename).startsWith(QLatin1String("<qt>http://h:80/&lt;img src")));
    QVERIFY(toolTip(0, FoundModel::Filename).size() < 1000);
    QVERIFY(cell(0, FoundModel::Url).size() < 2000);
    QCOMPARE(toolTip(1, FoundModel::Status), QStringLiteral("Network failure"));
    QCOMPARE(toolTip(2, FoundModel::Status), QStringLiteral("Unsupported protocol"));
    m_model->report(hostile, { FetchEvent::Relocated, QByteArray(200'000, 'b') });
    QVERIFY(cell(0, FoundModel::Status).size() < 2000);
}

void tst_FoundModel::itemsWithoutARowAreLeftAlone()
{
    m_filter.urlSwitch = FilterSwitch::Whitelist;
    FundKnoten* const hidden = add("http://h:80/");
    QCOMPARE(hidden->inhalt.listIndex, 0);
    m_model->report(hidden, { FetchEvent::Connecting, {} });
    m_model->refresh(hidden);
    m_filter.urlSwitch = FilterSwitch::Off;
    FundKnoten* const shown = add("http://h:80/a");
    QCOMPARE(shown->inhalt.listIndex, 1);
    // Out of date, as an item is left that lost its row.
    hidden->inhalt.listIndex = 1;
    m_model->report(hidden, { FetchEvent::Connecting, {} });
    QTRY_COMPARE(m_model->rowCount(), 1);
    QCOMPARE(cell(0, FoundModel::Status), QStringLiteral("0"));
}

/// Random filters over a list that grows and loses items, with a rebuild after each: rows and numbers are those of a
/// plain walk, marks stay with the items that stay.
void tst_FoundModel::rebuildsToWhatTheFilterShows()
{
    QRandomGenerator random(20261123);
    QList<FundKnoten*> nodes;
    for (int round = 0; round < 200; ++round) {
        for (int number = random.bounded(20); number > 0; --number)
            nodes += add("http://h:80/" + QByteArray::number(round) + '-' + QByteArray::number(number));
        QTRY_COMPARE(m_model->rowCount(), shownUrls().size());
        if (nodes.size() > 5 && random.bounded(3) == 0) {
            FundKnoten* const gone = nodes.takeAt(random.bounded(nodes.size()));
            m_model->removing(gone);
            m_list.remove(gone);
        }
        if (m_model->rowCount() > 0) {
            const int row = random.bounded(m_model->rowCount());
            m_model->setData(m_model->index(row, 0), Qt::Checked, Qt::CheckStateRole);
        }
        QSet<QByteArray> marked;
        for (const RowRun& run : m_model->markedRows()) {
            for (int row = run.first; row <= run.last; ++row)
                marked += m_model->itemAt(row).adresse;
        }

        m_filter.urlSwitch = static_cast<FilterSwitch>(random.bounded(3));
        m_filter.filterTexte = { QByteArray::number(random.bounded(10)), "-" + QByteArray::number(random.bounded(10)) };
        QVERIFY(rebuild());

        QByteArrayList expected;
        for (FundKnoten* const knoten : nodes) {
            const bool shown = m_filter.shows(knoten->inhalt);
            if (shown)
                expected += knoten->inhalt.adresse;
            QCOMPARE(knoten->inhalt.listIndex, shown ? static_cast<qint32>(expected.size()) : 0);
        }
        QCOMPARE(shownUrls(), expected);
        for (int row = 0; row < m_model->rowCount(); ++row) {
            const bool isMarked = m_model->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
            QCOMPARE(isMarked, marked.contains(m_model->itemAt(row).adresse));
        }
    }
}

void tst_FoundModel::fewChangesKeepWhatIsSelected()
{
    QList<FundKnoten*> nodes;
    for (int number = 0; number < 100; ++number)
        nodes += add("http://h:80/" + QByteArray::number(number));
    QTRY_COMPARE(m_model->rowCount(), 100);
    const QPersistentModelIndex selected = m_model->index(50, 0);
    QSignalSpy reset(m_model.get(), &FoundModel::modelReset);
    m_model->removing(nodes[10]);
    m_list.remove(nodes[10]);
    QVERIFY(rebuild());
    QCOMPARE(selected.row(), 49);
    m_filter.urlSwitch = FilterSwitch::Blacklist;
    m_filter.filterTexte = { "/2" };
    QVERIFY(rebuild());
    QCOMPARE(m_model->itemAt(selected.row()).adresse, "http://h:80/50");
    QCOMPARE(reset.count(), 0);
}

void tst_FoundModel::aLaterRebuildOvertakes()
{
    m_tester.reset();
    constexpr int items = 600'000; // too many for one slice
    for (int number = 0; number < items; ++number)
        add("http://h:80/" + QByteArray::number(number));
    QTRY_COMPARE(m_model->rowCount(), items);
    QSignalSpy rebuilt(m_model.get(), &FoundModel::rebuilt);
    m_filter.urlSwitch = FilterSwitch::Whitelist;
    m_filter.filterTexte = { "/1" };
    m_model->rebuild();
    QCOMPARE(rebuilt.count(), 0);
    QCOMPARE(m_model->rowCount(), items);
    // Its filter is the one that it began with, whatever is set meanwhile.
    m_filter.filterTexte = { "/2" };
    QVERIFY(rebuilt.wait());
    QCOMPARE(m_model->rowCount(), 111'111);
    rebuilt.clear();
    m_model->rebuild();
    m_filter.filterTexte = { "/29999" };
    m_model->rebuild();
    FundKnoten* const late = add("http://h:80/299990000");
    QTRY_COMPARE(rebuilt.count(), 1);
    QCOMPARE(m_model->rowCount(), 12);
    QCOMPARE(late->inhalt.listIndex, 12);
}

void tst_FoundModel::coversRows_data()
{
    QTest::addColumn<QList<int>>("bounds");
    QTest::addColumn<QList<int>>("merged");
    QTest::addColumn<QList<int>>("inverted");
    const auto row = [](const char* title, QList<int> bounds, QList<int> merged, QList<int> inverted) {
        QTest::newRow(title) << bounds << merged << inverted;
    };
    row("none", {}, {}, { 0, 9 });
    row("all", { 0, 9 }, { 0, 9 }, {});
    row("in the middle", { 3, 5 }, { 3, 5 }, { 0, 2, 6, 9 });
    row("neighbours become one", { 5, 6, 3, 4 }, { 3, 6 }, { 0, 2, 7, 9 });
    row("overlapping, one inside another", { 0, 8, 2, 3, 8, 9 }, { 0, 9 }, {});
    row("a gap of one row", { 0, 3, 5, 9 }, { 0, 3, 5, 9 }, { 4, 4 });
}

void tst_FoundModel::coversRows()
{
    QFETCH(QList<int>, bounds);
    const auto runsOf = [](const QList<int>& numbers) {
        RowRuns runs;
        for (qsizetype index = 0; index < numbers.size(); index += 2)
            runs.push_back({ numbers[index], numbers[index + 1] });
        return runs;
    };
    QFETCH(QList<int>, merged);
    QFETCH(QList<int>, inverted);
    QCOMPARE(mergedRuns(runsOf(bounds)), runsOf(merged));
    QCOMPARE(invertedRuns(mergedRuns(runsOf(bounds)), 10), runsOf(inverted));
}

QTEST_MAIN(tst_FoundModel)

#include "tst_FoundModel.moc"
