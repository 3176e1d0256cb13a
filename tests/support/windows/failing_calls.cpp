// SPDX-License-Identifier: MIT
#include "tests/support/failing_calls.h"

std::function<bool()> failing_calls::syncFails;
std::function<bool()> failing_calls::readFails;
