#include "radiogps/dash.h"

#include <benchmark/benchmark.h>

namespace {

/// The needle's shape on the dash of the largest default skin, at all angles.
void NeedleTurned(benchmark::State& state) {
    double degrees = 0;
    for (auto _ : state) {
        degrees += 7;
        benchmark::DoNotOptimize(zvr::NeedleRuns({{296, 296}, 267, 8, 80, degrees}, {592, 592}));
    }
}
BENCHMARK(NeedleTurned);

}  // namespace
