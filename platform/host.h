// SPDX-License-Identifier: MIT
// What the host wants of a process.
#pragma once

/// Makes this process one that the rest of the platform can rely on; main() calls it first.
void prepareHost();
