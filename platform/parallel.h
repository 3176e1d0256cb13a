// SPDX-License-Identifier: MIT
// One loop on all processors.
#pragma once

#include <functional>

/// Runs body(0) to body(count - 1), each once, in any order and several at a time; returns when all
/// are done. The body must not throw.
void inParallel(int count, const std::function<void(int)> &body);
