// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/window/HostTree.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_HostTree : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void arrangesUrls_data();
    void arrangesUrls();
    void aNodeStandsForWhatIsBelowIt();
    void nodesComeOncePerPass();
    void rebuildForgetsWhatWasRemoved();
    void endlessDirectoriesEnd();

private:
    FundKnoten* add(const QByteArray& url);
    /// One line for each node: as many blanks as its level, then its text.
    [[nodiscard]] QString picture(const QModelIndex& index) const;
    [[nodiscard]] QString picture() const { return picture(m_tree->index(0, 0)); }

    FundListe m_list;
    std::unique_ptr<HostTree> m_tree;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void tst_HostTree::init()
{
    m_list.clear();
    m_tree = std::make_unique<HostTree>(m_list, nullptr);
    m_tester =
        std::make_unique<QAbstractItemModelTester>(m_tree.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
}

void tst_HostTree::cleanup()
{
    m_tester.reset();
    m_tree.reset();
}

FundKnoten* tst_HostTree::add(const QByteArray& url)
{
    FundStück item;
    item.adresse = url;
    FundKnoten* const found = m_list.add(item);
    m_tree->add(found->inhalt);
    return found;
}

QString tst_HostTree::picture(const QModelIndex& index) const
{
    QString lines = QString(m_tree->branch(index).level, u' ') + index.data().toString() + u'\n';
    for (int row = 0; row < m_tree->rowCount(index); ++row)
        lines += picture(m_tree->index(row, 0, index));
    return lines;
}

void tst_HostTree::arrangesUrls_data()
{
    QTest::addColumn<QByteArrayList>("urls");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, const QByteArrayList& urls, const char* expected) {
        QTest::newRow(title) << urls << QString::fromLatin1(expected);
    };
    row("nothing", {}, "/\n");
    row("labels from the top level down, the port, directories but no file",
        { "http://shop.example.org:80/a/b/c.html" }, "/\n org\n  example\n   shop\n    :80\n     a\n      b\n");
    row("what is there is used again", { "http://h:80/a/x", "http://h:80/a/y", "http://h:80/", "http://h:80/b/" },
        "/\n h\n  :80\n   a\n   b\n");
    row("a host above another", { "http://a.h:80/", "http://h:81/" }, "/\n h\n  a\n   :80\n  :81\n");
    row("upper and lower case", { "http://h:80/A/", "http://h:80/a/" }, "/\n h\n  :80\n   A\n   a\n");
    row("an empty directory", { "http://h:80//a/" }, "/\n h\n  :80\n   \n    a\n");
    row("other protocols", { "https://h:443/", "mailto://x:0/" }, "/\n");
}

void tst_HostTree::arrangesUrls()
{
    QFETCH(QByteArrayList, urls);
    QFETCH(QString, expected);
    for (const QByteArray& url : urls)
        add(url);
    QTRY_COMPARE(picture(), expected);
}

void tst_HostTree::aNodeStandsForWhatIsBelowIt()
{
    add("http://www.h.org:80/a/b/x");
    QTRY_VERIFY(m_tree->find("http://www.h.org:80/a/b/", 6).isValid());
    const QByteArrayList prefixes { "http://", "http://org", "http://h.org", "http://www.h.org", "http://www.h.org:80/",
        "http://www.h.org:80/a/", "http://www.h.org:80/a/b/" };
    for (qint32 level = 0; level < prefixes.size(); ++level) {
        const SubUrl branch = m_tree->branch(m_tree->find("http://www.h.org:80/a/b/", level));
        QCOMPARE(branch.text, prefixes[level]);
        QCOMPARE(branch.level, level);
    }
    QVERIFY(!m_tree->find("http://www.h.org:80/c/", 5).isValid());
}

void tst_HostTree::nodesComeOncePerPass()
{
    QSignalSpy inserted(m_tree.get(), &HostTree::rowsInserted);
    for (int number = 0; number < 50; ++number)
        add("http://h" + QByteArray::number(number) + ".org:80/a/");
    QCOMPARE(m_tree->rowCount(m_tree->index(0, 0)), 0);
    QTRY_COMPARE(inserted.count(), 1);
    const QModelIndex org = m_tree->find("http://org", 1);
    QCOMPARE(m_tree->rowCount(org), 50);
    add("http://h1.org:80/b/");
    add("http://new.org:80/");
    QTRY_COMPARE(inserted.count(), 3);
    QCOMPARE(m_tree->rowCount(org), 51);
}

void tst_HostTree::rebuildForgetsWhatWasRemoved()
{
    add("http://h:80/a/");
    FundKnoten* const gone = add("http://h:80/gone/");
    QTRY_VERIFY(picture().contains(QLatin1String("gone")));
    QSignalSpy reset(m_tree.get(), &HostTree::modelReset);
    m_tree->rebuild();
    add("http://h:80/other/");
    QTRY_VERIFY(picture().contains(QLatin1String("other")));
    QCOMPARE(reset.count(), 0);
    m_list.remove(gone);
    add("http://h:80/late/");
    m_tree->rebuild();
    QTRY_COMPARE(picture(), QStringLiteral("/\n h\n  :80\n   a\n   other\n   late\n"));
    QCOMPARE(reset.count(), 1);
}

void tst_HostTree::endlessDirectoriesEnd()
{
    m_tester.reset(); // It would test all nodes again for every new one.
    add("http://h:80/" + QByteArray("a/").repeated(30'000));
    const QByteArray deep = "http://h:80/" + QByteArray("a/").repeated(300);
    QTRY_VERIFY(m_tree->find(deep, HostArena::deepestLevel).isValid());
    QVERIFY(!m_tree->find(deep, HostArena::deepestLevel + 1).isValid());
}

QTEST_MAIN(tst_HostTree)

#include "tst_HostTree.moc"
