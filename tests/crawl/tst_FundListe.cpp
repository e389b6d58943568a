// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"
#include "support/Text.h"

#include <QTest>

class tst_FundListe : public QObject {
    Q_OBJECT

private slots:
    void linksNodesInOrder();
    void removesAnyNode_data();
    void removesAnyNode();
    void removedNodeLivesOn();
    void clearedListStartsAnew();
};

static FundKnoten* addUrl(FundListe& list, const QByteArray& url)
{
    FundStück item;
    item.adresse = url;
    return list.add(item);
}

/// The URLs by a walk from the end, so that the links backwards are seen too.
static QByteArrayList urlsBackwards(const FundListe& list)
{
    QByteArrayList urls;
    for (const FundKnoten* knoten = list.getLetzter(); knoten; knoten = knoten->vorheriger)
        urls.prepend(knoten->inhalt.adresse);
    return urls;
}

void tst_FundListe::linksNodesInOrder()
{
    FundListe list;
    QVERIFY(!list.getStart() && !list.getRoot() && !list.getLetzter());
    FundKnoten* const a = addUrl(list, "a");
    QVERIFY(list.getStart() == a && list.getLetzter() == a && !a->naechster && !a->vorheriger);
    addUrl(list, "b");
    addUrl(list, "c");
    QCOMPARE(urlsOf(list), (QByteArrayList { "a", "b", "c" }));
    QCOMPARE(urlsBackwards(list), urlsOf(list));
    QCOMPARE(list.getAnzahl(), 3);
}

void tst_FundListe::removesAnyNode_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("first") << 0;
    QTest::newRow("middle") << 1;
    QTest::newRow("last") << 2;
}

void tst_FundListe::removesAnyNode()
{
    QFETCH(int, place);
    FundListe list;
    QByteArrayList urls { "a", "b", "c" };
    QList<FundKnoten*> nodes;
    for (const QByteArray& url : urls)
        nodes += addUrl(list, url);
    list.remove(nodes[place]);
    const QByteArray removed = urls.takeAt(place);
    QCOMPARE(urlsOf(list), urls);
    QCOMPARE(urlsBackwards(list), urls);
    QCOMPARE(list.getAnzahl(), 2);
    QVERIFY(!list.istBekannt(removed));
    QVERIFY(list.istBekannt(urls[0]) && list.istBekannt(urls[1]));
}

void tst_FundListe::removedNodeLivesOn()
{
    FundListe list;
    FundKnoten* const only = addUrl(list, "a");
    list.remove(only);
    QVERIFY(!list.getStart() && !list.getLetzter());
    QCOMPARE(list.getAnzahl(), 0);
    QCOMPARE(only->inhalt.adresse, "a");
}

void tst_FundListe::clearedListStartsAnew()
{
    FundListe list;
    addUrl(list, "a");
    list.remove(addUrl(list, "b"));
    list.clear();
    QVERIFY(!list.istBekannt("a"));
    addUrl(list, "c");
    QCOMPARE(urlsOf(list), QByteArrayList { "c" });
    QCOMPARE(urlsBackwards(list), QByteArrayList { "c" });
    QCOMPARE(list.getAnzahl(), 1);
}

QTEST_GUILESS_MAIN(tst_FundListe)
#include "tst_FundListe.moc"
