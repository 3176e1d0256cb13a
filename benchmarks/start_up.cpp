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

double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + rounds / 2, values.end());
    return values[rounds / 2];
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

/// A start of the program beside an empty window's and a bare read. The three take turns, so that
/// what else the machine does meets them alike.
struct Comparison {
    double empty = 0;
    double read = 0;
    double program = 0;
    double beyond = 0; ///< the empty window, in bare reads
    double memory = 0; ///< of the program, in MB

    explicit Comparison(const std::function<void()> &bareRead)
    {
        std::vector<double> emptyTimes;
        std::vector<double> readTimes;
        std::vector<double> programTimes;
        std::vector<double> ratios;
        for (int i = 0; i < rounds; ++i) {
            emptyTimes.push_back(milliseconds([] { run("empty_window"); }));
            readTimes.push_back(milliseconds(bareRead));
            programTimes.push_back(
                milliseconds([&] { memory = std::max(memory, run("painted_program")); }));
            ratios.push_back((programTimes.back() - emptyTimes.back()) / readTimes.back());
        }
        empty = median(emptyTimes);
        read = median(readTimes);
        program = median(programTimes);
        beyond = median(ratios);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    {
        const Sandbox sandbox;
        benchmark_tree::addAirportList(sandbox);
        const Comparison firstRun([&] { benchmark_tree::readAirportList(sandbox); });
        std::printf("empty window          %8.1f ms\n", firstRun.empty);
        std::printf("airport list, by line %8.1f ms\n", firstRun.read);
        std::printf("program, first run    %8.1f ms\n", firstRun.program);
        std::printf("  beyond the empty window: %.2f times the list\n", firstRun.beyond);
    }
    const Sandbox sandbox;
    benchmark_tree::addAirportList(sandbox);
    benchmark_tree::make(sandbox);
    sandbox.write("C:\\Morlen\\MorlenE.ini",
                  "0\r\n\r\nc:\r\n" + benchmark_tree::aircraftDir.toLatin1() + "\r\n" +
                      benchmark_tree::textFile.toLatin1() + "\r\nTrue\r\n");
    benchmark_tree::bareWalk(sandbox); // warm
    const Comparison filled([&] { benchmark_tree::bareWalk(sandbox); });
    std::printf("bare walk             %8.1f ms\n", filled.read);
    std::printf("program, lists filled %8.1f ms\n", filled.program);
    std::printf("  beyond the empty window: %.2f bare walks\n", filled.beyond);
    std::printf("peak resident memory  %8.1f MB\n", filled.memory);
    return 0;
}
