// SPDX-License-Identifier: MIT
#include "platform/parallel.h"

#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include <atomic>

void inParallel(int count, const std::function<void(int)> &body)
{
    std::atomic<int> next = 0;
    const auto work = [&] {
        for (int i = next++; i < count; i = next++) {
            body(i);
        }
    };
    QSemaphore done;
    int helpers = 0;
    while (helpers < QThread::idealThreadCount() - 1 &&
           QThreadPool::globalInstance()->tryStart([&] {
               work();
               done.release();
           })) {
        ++helpers;
    }
    work();
    done.acquire(helpers);
}
