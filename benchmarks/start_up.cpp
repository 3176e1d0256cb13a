// SPDX-License-Identifier: MIT
// Start-up to a painted main window, against an empty window and a bare read of the same files: a
// first run with the airport list alone, then with all lists filled.
#include "benchmarks/tree.h"
#include "benchmarks/turns.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace
{

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

/// A simulator, and settings that name it.
struct Installed {
    explicit Installed(int folders)
    {
        benchmark_tree::addAirportList(sandbox);
        benchmark_tree::make(sandbox, folders);
        sandbox.write("C:\\Morlen\\MorlenE.ini",
                      "0\r\n\r\nc:\r\n" + benchmark_tree::aircraftDir.toLatin1() + "\r\n" +
                          benchmark_tree::textFile.toLatin1() + "\r\nTrue\r\n");
    }

    void start() { memory = std::max(memory, run("painted_program")); }

    Sandbox sandbox;
    double memory = 0;
};

const Work emptyWindow = {"empty window", [] { run("empty_window"); }};

void firstRun()
{
    const Sandbox sandbox;
    benchmark_tree::addAirportList(sandbox);
    takeTurns("First run, without a simulator", 15,
              {emptyWindow,
               {"airport list, by line", [&] { benchmark_tree::readAirportList(sandbox); }},
               {"start-up",
                [] { run("painted_program"); },
                {{"airport list, by line", 0, "empty window"}}}});
}

void collection()
{
    Installed fs9(5000);
    const auto forget = [&] { benchmark_tree::dropFromCache(fs9.sandbox); };
    takeTurns("5,000 folders, 20,000 titles", 15,
              {emptyWindow,
               {"bare walk", [&] { benchmark_tree::bareWalk(fs9.sandbox); }},
               {"start-up", [&] { fs9.start(); }, {{"bare walk", 3.5, "empty window"}}}});
    printFigure("peak memory", fs9.memory, "MB", 120);
    takeTurns("The same with no file in the cache", 7,
              {{"grep", [&] { benchmark_tree::grep(fs9.sandbox); }, {}, forget},
               {"start-up", [&] { fs9.start(); }, {{"grep", 1}}, forget}});
}

void largestCollection()
{
    Installed fs9(50000);
    takeTurns("50,000 folders, 200,000 titles", 5,
              {{"grep", [&] { benchmark_tree::grep(fs9.sandbox); }},
               {"start-up", [&] { fs9.start(); }, {{"grep", 1}}}});
    printFigure("peak memory", fs9.memory, "MB", 200);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    firstRun();
    collection();
    largestCollection();
    return 0;
}
