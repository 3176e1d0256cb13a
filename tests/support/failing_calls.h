// SPDX-License-Identifier: MIT
// Calls to the system that fail as on a broken disk when a test says so. The programs that include
// this have them replaced, where the system lets them (host::failingCalls).
#pragma once

#include <functional>

namespace failing_calls
{

extern std::function<bool()> syncFails; ///< asked at each sync of a file
extern std::function<bool()> readFails; ///< asked at each read

} // namespace failing_calls
