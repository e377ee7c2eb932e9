#pragma once
#include <QByteArray>
#include <benchmark/benchmark.h>

namespace tesorel::bench
{

// Runs the registered benchmarks. True when the run was filtered (profiling
// one benchmark), in which case the program skips its closing medians.
inline bool correrBenchmarks(int &argc, char **argv)
{
    bool filtered = false;
    for (int i = 1; i < argc; ++i)
        filtered = filtered || QByteArray(argv[i]).startsWith("--benchmark_filter");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return filtered;
}

} // namespace tesorel::bench
