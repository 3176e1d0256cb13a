// SPDX-License-Identifier: MIT
// What the benchmarks on the tree of aircraft share.
#pragma once

#include "benchmarks/tree.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace tree_benchmark
{

inline const Sandbox *sandbox = nullptr; ///< made by run, before any measuring

inline void bareWalk(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(benchmark_tree::bareWalk(*sandbox));
    }
}

/// Makes the tree and runs the registered benchmarks. Returns the exit code of the program.
inline int run(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const Sandbox tree;
    benchmark_tree::make(tree);
    sandbox = &tree;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

} // namespace tree_benchmark
