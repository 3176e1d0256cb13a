// SPDX-License-Identifier: MIT
#include "benchmarks/turns.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <map>

namespace
{

constexpr int nameWidth = 44;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void printLimit(double value, double limit)
{
    if (limit > 0) {
        std::printf(" (limit %g%s)", limit, value > limit ? ", MISSED" : "");
    }
}

} // namespace

void takeTurns(const std::string &title, int turns, const std::vector<Work> &works)
{
    std::map<std::string, std::vector<double>> times;
    for (int turn = 0; turn <= turns; ++turn) {
        for (const Work &work : works) {
            work.prepare();
            const double time = milliseconds(work.run);
            if (turn > 0) { // the first one warms up
                times[work.name].push_back(time);
            }
        }
    }
    std::printf("\n%s\n", title.c_str());
    for (const Work &work : works) {
        const std::vector<double> &own = times[work.name];
        std::printf("  %-*s %9.2f ms", nameWidth, work.name.c_str(), median(own));
        for (const Beside &other : work.beside) {
            std::vector<double> ratios;
            for (std::size_t i = 0; i < own.size(); ++i) {
                const double off = other.beyond.empty() ? 0 : times[other.beyond][i];
                ratios.push_back((own[i] - off) / times[other.work][i]);
            }
            const std::string off = other.beyond.empty() ? "" : other.beyond + " + ";
            std::printf(", %s%.2f x %s", off.c_str(), median(ratios), other.work.c_str());
            printLimit(median(ratios), other.limit);
        }
        std::printf("\n");
    }
    std::fflush(stdout);
}

void printFigure(const std::string &name, double value, const std::string &unit, double limit)
{
    std::printf("  %-*s %9.1f %s", nameWidth, name.c_str(), value, unit.c_str());
    printLimit(value, limit);
    std::printf("\n");
}
