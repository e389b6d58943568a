// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/lang.h"
#include "results/ResultColumns.h"
#include "results/ResultFilter.h"
#include "results/window/FoundModel.h"

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
    void sizesAreInTheUnitOfTheLastRebuild();
    void rowsComeOncePerPass();
    void stateTextYieldsToTheStatusNumber();
    void serversHaveNoSayInToolTips();
    void itemsWithoutARowAreLeftAlone();
    void itemsMayPassWithTheirAnswer();
    void rebuildsToWhatTheFilterShows();
    void fewChangesKeepWhatIsSelected();
    void aLaterRebuildOvertakes();
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
    FundKnoten* const node = m_list.add(item);
    m_model->offer(node);
    return node;
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
    FundKnoten* const node = add("http://h:80/a/b.html?x");
    FundStück& item = node->inhalt;
    item.mimeTyp = "text/html; charset=x";
    item.groesse = 5'000'000'000;
    item.tiefe = 2;
    item.statusCode = 404;
    item.referenzTyp = ReferenceType::AnySrc;
    item.sprache = "de";
    QTRY_COMPARE(m_model->rowCount(), 1);
    QStringList shown;
    for (int column = 0; column < ResultColumn::Count; ++column)
        shown += cell(0, column);
    QCOMPARE(shown.join(u'|'),
        QStringLiteral("b.html?x|text/html; charset=x|5000000000|2|404|? src|de|http://h:80/a/b.html?x"));
    QCOMPARE(m_model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Filename"));
    QVERIFY(m_model->index(0, ResultColumn::Size).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    QVERIFY(!m_model->index(0, ResultColumn::Url).data(Qt::TextAlignmentRole).isValid());
    QCOMPARE(m_model->headerData(7, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Url"));
}

void tst_FoundModel::sizesAreInTheUnitOfTheLastRebuild()
{
    for (const qint64 size : { 1023, 1024, -1 })
        add("http://h:80/")->inhalt.groesse = size;
    QTRY_COMPARE(m_model->rowCount(), 3);
    const auto shown = [this] {
        QStringList sizes;
        for (int row = 0; row < m_model->rowCount(); ++row)
            sizes += cell(row, ResultColumn::Size);
        return sizes.join(u' ');
    };
    m_filter.sizeUnit = 1024;
    QCOMPARE(shown(), QStringLiteral("1023 1024 ?"));
    QVERIFY(rebuild());
    QCOMPARE(shown(), QStringLiteral("0 1 ?"));
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
    FundKnoten* const node = add("http://h:80/");
    QTRY_COMPARE(m_model->rowCount(), 1);
    m_model->report(node, { FetchEvent::Connecting, {} });
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("Connecting"));
    m_language.selectBuiltIn(LanguageTable::German);
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("Verbindungsaufbau"));
    m_language.selectBuiltIn(LanguageTable::English);

    node->inhalt.statusCode = 200;
    QSignalSpy changed(m_model.get(), &FoundModel::dataChanged);
    m_model->refresh(node);
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("200"));
    QTRY_VERIFY(changed.count() > 0);
    // The reason stays in the tool tip.
    node->inhalt.reason =
        m_list.keep({ FetchEvent::NetError, {}, { ExchangeFailure::System, 0, QStringLiteral("<b>x") } });
    m_model->report(node, *node->inhalt.reason);
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("Network failure: 0:<b>x"));
    const QString toolTip = QStringLiteral("<qt>Network failure: 0:&lt;b&gt;x</qt>");
    QCOMPARE(m_model->index(0, ResultColumn::Status).data(Qt::ToolTipRole).toString(), toolTip);
    QVERIFY(rebuild());
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("200"));
    QCOMPARE(m_model->index(0, ResultColumn::Status).data(Qt::ToolTipRole).toString(), toolTip);
}

void tst_FoundModel::serversHaveNoSayInToolTips()
{
    FundKnoten* const hostile = add("http://h:80/<img src=//x/y>\u202E" + QByteArray(60'000, 'a'));
    FundKnoten* const failed = add("http://h:80/failed");
    add("https://h:443/");
    failed->inhalt.zustand = FetchState::Failed;
    QTRY_COMPARE(m_model->rowCount(), 3);
    const auto toolTip = [this](int row, int column) {
        return m_model->index(row, column).data(Qt::ToolTipRole).toString();
    };
    QVERIFY(toolTip(0, ResultColumn::FileName).startsWith(QLatin1String("<qt>http://h:80/&lt;img src")));
    QVERIFY(toolTip(0, ResultColumn::FileName).size() < 1000);
    QVERIFY(cell(0, ResultColumn::Url).size() < 2000);
    for (const QString& shown : { cell(0, ResultColumn::FileName), toolTip(0, ResultColumn::FileName) })
        QVERIFY(!shown.contains(QChar(0x202e)));
    QCOMPARE(toolTip(1, ResultColumn::Status), QStringLiteral("Network failure"));
    QCOMPARE(toolTip(2, ResultColumn::Status), QStringLiteral("Unsupported protocol"));
    hostile->inhalt.reason = m_list.keep({ FetchEvent::Relocated, QByteArray(200'000, 'b') });
    m_model->report(hostile, *hostile->inhalt.reason);
    QVERIFY(cell(0, ResultColumn::Status).size() < 2000);
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
    // An item that has lost its row may keep an outdated number.
    hidden->inhalt.listIndex = 1;
    m_model->report(hidden, { FetchEvent::Connecting, {} });
    QTRY_COMPARE(m_model->rowCount(), 1);
    QCOMPARE(cell(0, ResultColumn::Status), QStringLiteral("0"));
}

void tst_FoundModel::itemsMayPassWithTheirAnswer()
{
    m_filter.mimeSwitch = FilterSwitch::Whitelist;
    m_filter.mimeListe.insert("text/html").listed = true;
    QVERIFY(m_model->hidesAll());
    for (const char* const url : { "http://h:80/a", "http://h:80/b", "http://h:80/c" })
        add(url);
    const auto answer = [this](FundKnoten* node, const QByteArray& type) {
        node->inhalt.mimeTyp = type;
        m_model->refresh(node);
    };
    answer(m_list.getLetzter(), "text/html");
    QVERIFY(!m_model->hidesAll()); // also before the views are told
    answer(m_list.getStart(), "text/html");
    answer(m_list.getStart()->naechster(), "image/png");
    QTRY_COMPARE(m_model->rowCount(), 2);
    QVERIFY(rebuild());
    QCOMPARE(shownUrls(), (QByteArrayList { "http://h:80/a", "http://h:80/c" })); // in the order of the list again
}

/// Compares rebuilds with a plain walk over the list, for random filters and a list that grows and loses items. Marks
/// must stay with the items that keep their row.
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
        for (FundKnoten* const node : nodes) {
            const bool shown = m_filter.shows(node->inhalt);
            if (shown)
                expected += node->inhalt.adresse;
            QCOMPARE(node->inhalt.listIndex, shown ? static_cast<qint32>(expected.size()) : 0);
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
    // The URLs in the middle take so long to test that they fill dozens of slices. So a rebuild is still running when
    // its call returns.
    for (int number = 0; number < 100; ++number)
        add("http://h:80/" + QByteArray::number(number));
    const QByteArray slow = "http://h:80" + QByteArray(500'000, '/');
    for (int number = 0; number < 64; ++number)
        add(slow);
    for (int number = 100; number < 200; ++number)
        add("http://h:80/" + QByteArray::number(number));
    QTRY_COMPARE(m_model->rowCount(), 264);
    QSignalSpy rebuilt(m_model.get(), &FoundModel::rebuilt);
    m_filter.urlSwitch = FilterSwitch::Whitelist;
    m_filter.filterTexte = { "/1" };
    m_model->rebuild();
    QCOMPARE(rebuilt.count(), 0);
    QCOMPARE(m_model->rowCount(), 264);
    // A rebuild uses the filter as it was when the rebuild began.
    m_filter.filterTexte = { "/2" };
    QVERIFY(rebuilt.wait());
    QCOMPARE(m_model->rowCount(), 111);
    rebuilt.clear();
    m_model->rebuild();
    m_filter.filterTexte = { "/29" };
    m_model->rebuild();
    FundKnoten* const late = add("http://h:80/2900");
    QCOMPARE(late->inhalt.listIndex, 0);
    // The walk has passed the first items already.
    m_list.getStart()->inhalt.adresse = "http://h:80/29000";
    m_model->refresh(m_list.getStart());
    QTRY_COMPARE(rebuilt.count(), 1);
    QCOMPARE(m_model->itemAt(m_list.getStart()->inhalt.listIndex - 1).adresse, "http://h:80/29000");
    QTRY_COMPARE(shownUrls(), (QByteArrayList { "http://h:80/29", "http://h:80/2900", "http://h:80/29000" }));
    QCOMPARE(late->inhalt.listIndex, 2);
}

/// Compares runs over ten rows with a test of each row.
void tst_FoundModel::coversRows()
{
    QRandomGenerator random(3);
    const auto runsOf = [](const QString& rows, QChar sign) {
        RowRuns runs;
        for (int row = 0; row < rows.size(); ++row) {
            if (rows[row] == sign && (row == 0 || rows[row - 1] != sign))
                runs.push_back({ row, row });
            else if (rows[row] == sign)
                runs.back().last = row;
        }
        return runs;
    };
    for (int round = 0; round < 1000; ++round) {
        RowRuns runs;
        QString rows(10, u'-');
        for (int left = random.bounded(4); left > 0; --left) {
            const int first = random.bounded(10);
            runs.push_back({ first, random.bounded(first, 10) });
            rows.replace(first, runs.back().last - first + 1, QString(runs.back().last - first + 1, u'x'));
        }
        QCOMPARE(mergedRuns(runs), runsOf(rows, u'x'));
        QCOMPARE(invertedRuns(mergedRuns(runs), 10), runsOf(rows, u'-'));
    }
}

QTEST_MAIN(tst_FoundModel)

#include "tst_FoundModel.moc"
