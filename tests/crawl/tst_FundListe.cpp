// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/ListWalk.h"
#include "support/Text.h"

#include <QHash>
#include <QRandomGenerator>
#include <QTest>

#include <array>

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
static QList<FundKnoten*> nodesBackwards(FundListe& list)
{
    QList<FundKnoten*> nodes;
    for (FundKnoten* node = list.getLetzter(); node; node = node->vorheriger())
        nodes.prepend(node);
    return nodes;
}

/// A walk beside the plain list, where its place is the number of items that it has passed and that are still there.
struct WatchedWalk {
    explicit WatchedWalk(const FundListe& list)
        : walk(list)
    {
    }
    void removed(qsizetype at) { place -= at < place ? 1 : 0; }
    /// Takes a step; false when the walk gives another node than the one of its place.
    [[nodiscard]] bool goesOnIn(const QList<FundKnoten*>& nodes)
    {
        const bool isAtEnd = place == nodes.size();
        return walk.next() == (isAtEnd ? nullptr : nodes[place++]);
    }

    ListWalk<const FundListe> walk;
    qsizetype place = 0;
};

/// Thousands of additions and removals under resting walks, with URLs that come more than once, and a new beginning.
void tst_FundListe::agreesWithAPlainList()
{
    constexpr int steps = 60'000;
    constexpr int kinds = 3000;
    QRandomGenerator random(7);
    FundListe list;
    QList<FundKnoten*> nodes;
    QByteArrayList urls;
    QHash<QByteArray, int> copies;
    std::array<WatchedWalk, 3> walks { WatchedWalk(list), WatchedWalk(list), WatchedWalk(list) };
    const auto anyUrl = [&random]() -> QByteArray {
        return "http://h:80/" + QByteArray::number(random.bounded(kinds));
    };
    for (int step = 0; step < steps || !nodes.isEmpty(); ++step) {
        if (step == 10'000) {
            list.clear();
            nodes.clear();
            urls.clear();
            copies.clear();
            for (WatchedWalk& each : walks)
                each.place = 0;
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
            for (WatchedWalk& each : walks)
                each.removed(place);
            QCOMPARE(gone->inhalt.adresse, urls[place]);
            --copies[urls.takeAt(place)];
        }
        QVERIFY(walks[static_cast<size_t>(random.bounded(3))].goesOnIn(nodes));
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
