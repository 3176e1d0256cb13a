// SPDX-License-Identifier: MIT
// Works measured beside each other.
#pragma once

#include <functional>
#include <string>
#include <vector>

/// What a work is compared with: another one, and what may be taken off before.
struct Beside {
    std::string work;
    double limit = 0;        ///< times the other one at most; 0 for no limit
    std::string beyond = {}; ///< the work whose time is taken off
};

struct Work {
    std::string name;
    std::function<void()> run;
    std::vector<Beside> beside = {};
    std::function<void()> prepare = [] {}; ///< before each run, not measured
};

/// Lets the works take turns, so that what else the machine does meets them alike, and prints
/// medians: of the times, and of the ratios within a turn.
void takeTurns(const std::string &title, int turns, const std::vector<Work> &works);

/// Prints a figure that has a limit.
void printFigure(const std::string &name, double value, const std::string &unit, double limit);
