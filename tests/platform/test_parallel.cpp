// SPDX-License-Identifier: MIT
// One loop on all processors.
#include "platform/parallel.h"

#include <QSemaphore>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <vector>

class TestParallel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyIndexRunsOnce();
    void nothingToDoIsDone();
    void processorsWorkSideBySide();
};

void TestParallel::everyIndexRunsOnce()
{
    std::vector<std::atomic<int>> runs(10000);
    inParallel(10000, [&](int i) { ++runs[static_cast<std::size_t>(i)]; });
    for (const std::atomic<int> &count : runs) {
        QCOMPARE(count.load(), 1);
    }
}

void TestParallel::nothingToDoIsDone()
{
    bool ran = false;
    inParallel(0, [&](int) { ran = true; });
    QVERIFY(!ran);
}

void TestParallel::processorsWorkSideBySide()
{
    if (QThread::idealThreadCount() < 2) {
        QSKIP("one processor");
    }
    // Each of the two waits for the other: one after the other they would never meet.
    QSemaphore arrived[2];
    std::atomic<int> met = 0;
    inParallel(2, [&](int i) {
        arrived[i].release();
        met += arrived[1 - i].tryAcquire(1, 60000) ? 1 : 0;
    });
    QCOMPARE(met.load(), 2);
}

QTEST_APPLESS_MAIN(TestParallel)
#include "test_parallel.moc"
