// SPDX-License-Identifier: GPL-3.0-or-later
#include "crawl/UrlIndex.h"

#include <QRandomGenerator>
#include <QTest>

#include <deque>

class tst_UrlIndex : public QObject {
    Q_OBJECT

private slots:
    void agreesWithCounting();
    void forgetsAllWhenCleared();
};

/// Thousands of insertions and removals, checked against plain counts of each URL.
void tst_UrlIndex::agreesWithCounting()
{
    constexpr int kinds = 3000;
    QRandomGenerator random(7);
    UrlIndex index;
    std::array<std::deque<QByteArray>, kinds> stored;
    const auto url = [](int kind) -> QByteArray {
        return "http://h:80/" + QByteArray::number(kind);
    };
    for (int step = 0; step < 60'000; ++step) {
        const int kind = random.bounded(kinds);
        auto& copies = stored[static_cast<size_t>(kind)];
        // Mostly growing at first, mostly shrinking in the end.
        if (random.bounded(60'000) > step) {
            copies.push_back(url(kind));
            index.insert(copies.back());
        } else if (!copies.empty()) {
            index.remove(copies.front());
            copies.pop_front();
        }
        const int other = random.bounded(kinds);
        QCOMPARE(index.contains(url(other)), !stored[static_cast<size_t>(other)].empty());
    }
    QVERIFY(!index.contains("http://h:80/"));
}

void tst_UrlIndex::forgetsAllWhenCleared()
{
    UrlIndex index;
    const QByteArray url = "http://h:80/";
    index.remove(url);
    index.insert(url);
    index.clear();
    QVERIFY(!index.contains(url));
    index.insert(url);
    QVERIFY(index.contains(QByteArray(url.constData(), url.size())));
}

QTEST_GUILESS_MAIN(tst_UrlIndex)
#include "tst_UrlIndex.moc"
