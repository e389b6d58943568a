// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/FundListe.h"
#include "support/Text.h"

#include <QHash>
#include <QRandomGenerator>
#include <QTest>

class tst_FundListe : public QObject {
    Q_OBJECT

private slots:
    void agreesWithAPlainList();
};

static FundKnoten* addUrl(FundListe& list, const QByteArray& url)
{
    FundStück item;
    item.adresse = url;
    return list.add(item);
}

/// The nodes by a walk from the end, so that the links backwards are seen too.
static QList<FundKnoten*> nodesBackwards(const FundListe& list)
{
    QList<FundKnoten*> nodes;
    for (FundKnoten* knoten = list.getLetzter(); knoten; knoten = knoten->vorheriger)
        nodes.prepend(knoten);
    return nodes;
}

/// Thousands of additions and removals, with URLs that come more than once, and a new beginning.
void tst_FundListe::agreesWithAPlainList()
{
    constexpr int steps = 60'000;
    constexpr int kinds = 3000;
    QRandomGenerator random(7);
    FundListe list;
    QList<FundKnoten*> nodes;
    QByteArrayList urls;
    QHash<QByteArray, int> copies;
    const auto anyUrl = [&random]() -> QByteArray {
        return "http://h:80/" + QByteArray::number(random.bounded(kinds));
    };
    for (int step = 0; step < steps || !nodes.isEmpty(); ++step) {
        if (step == 10'000) {
            list.clear();
            nodes.clear();
            urls.clear();
            copies.clear();
        }
        // Mostly growing at first, mostly shrinking in the end, and down to nothing.
        if (random.bounded(steps) > step) {
            urls += anyUrl();
            nodes += addUrl(list, urls.constLast());
            ++copies[urls.constLast()];
        } else if (!nodes.isEmpty()) {
            const int place = random.bounded(static_cast<int>(nodes.size()));
            FundKnoten* const gone = nodes.takeAt(place);
            list.remove(gone);
            QCOMPARE(gone->inhalt.adresse, urls[place]);
            --copies[urls.takeAt(place)];
        }
        QCOMPARE(list.getAnzahl(), nodes.size());
        const QByteArray url = anyUrl();
        QCOMPARE(list.istBekannt(url), copies.value(url) > 0);
        if (step % 1000 == 0 || nodes.size() < 4) {
            QCOMPARE(urlsOf(list), urls);
            QCOMPARE(nodesBackwards(list), nodes);
        }
    }
}

QTEST_GUILESS_MAIN(tst_FundListe)
#include "tst_FundListe.moc"
