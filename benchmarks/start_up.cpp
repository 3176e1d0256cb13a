// SPDX-License-Identifier: MIT
// Start-up to a painted main window, against an empty window and a bare read of the same files, in
// one run: a first run with the airport list alone, then with all lists filled.
#include "benchmarks/tree.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace
{

constexpr int rounds = 15;

double median(const std::function<void()> &work)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2];
}

/// Runs a program of the benchmark folder to its end. Returns its peak resident memory in MB.
double run(const char *name)
{
    QByteArray path =
        QFile::encodeName(QCoreApplication::applicationDirPath()) + '/' + QByteArray(name);
    char *arguments[] = {path.data(), nullptr};
    pid_t id = 0;
    int status = 0;
    rusage usage = {};
    if (posix_spawn(&id, path.constData(), nullptr, nullptr, arguments, environ) != 0 ||
        wait4(id, &status, 0, &usage) != id || status != 0) {
        qFatal("%s did not run to its end", name);
    }
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    double empty = 0;
    {
        const Sandbox firstRun;
        benchmark_tree::addAirportList(firstRun);
        const double list = median([&] { benchmark_tree::readAirportList(firstRun); });
        empty = median([] { run("empty_window"); });
        const double program = median([] { run("painted_program"); });
        std::printf("airport list, by line %8.1f ms\n", list);
        std::printf("empty window          %8.1f ms\n", empty);
        std::printf("program, first run    %8.1f ms\n", program);
        std::printf("  beyond the empty window: %.2f times the list\n", (program - empty) / list);
    }
    const Sandbox sandbox;
    benchmark_tree::addAirportList(sandbox);
    benchmark_tree::make(sandbox);
    sandbox.write("C:\\Morlen\\MorlenE.ini",
                  "0\r\n\r\nc:\r\n" + benchmark_tree::aircraftDir.toLatin1() + "\r\n" +
                      benchmark_tree::textFile.toLatin1() + "\r\nTrue\r\n");
    double memory = 0;
    const double walk = median([&] { benchmark_tree::bareWalk(sandbox); });
    const double program = median([&] { memory = std::max(memory, run("painted_program")); });
    std::printf("bare walk             %8.1f ms\n", walk);
    std::printf("program, list filled  %8.1f ms\n", program);
    std::printf("  beyond the empty window: %.2f bare walks\n", (program - empty) / walk);
    std::printf("peak resident memory  %8.1f MB\n", memory);
    return 0;
}
