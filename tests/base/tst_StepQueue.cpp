// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StepQueue.h"

#include <QTest>

class tst_StepQueue : public QObject {
    Q_OBJECT

private slots:
    void worksInOrder();
    void aStepMayDropTheWorkAndAddOther();
};

void tst_StepQueue::worksInOrder()
{
    StepQueue queue;
    QByteArray done;
    const auto work = [&](char name, int steps) {
        queue.add([&done, name, steps]() mutable {
            done += name;
            return --steps > 0;
        });
    };
    queue.add([&] {
        work('a', 2);
        work('b', 2);
        done += '-';
        return false;
    });
    QCOMPARE(done, "-aabb");
    QVERIFY(!queue.isBusy());
}

void tst_StepQueue::aStepMayDropTheWorkAndAddOther()
{
    StepQueue queue;
    QByteArray done;
    bool wasBusy = true;
    queue.add([&] {
        done += 'a';
        queue.finish(); // would never return if it ran this step
        queue.clear();
        wasBusy = queue.isBusy();
        queue.add([&] {
            done += 'b';
            return false;
        });
        return true;
    });
    QCOMPARE(done, "ab");
    QVERIFY(!wasBusy);
    QVERIFY(!queue.isBusy());
}

QTEST_GUILESS_MAIN(tst_StepQueue)

#include "tst_StepQueue.moc"
