#include "bench/defaultskins.h"
#include "skin/skinner.h"

#include <benchmark/benchmark.h>

namespace {

/// A change between two drawn skins. The test backend reads the pictures and decodes none.
void SkinLoaded(benchmark::State& state) {
    const auto names = zvr::DefaultSkins();
    if (names.size() < 2) {
        state.SkipWithError("the default skins are not drawn");
        return;
    }
    const auto bench = zvr::BenchWithDefaultSkins();
    zvr::Skinner& skinner = bench->program->skinner;
    bool first = skinner.loadedSkin != names[0];
    for (auto _ : state) {
        const std::string& next = first ? names[0] : names[1];
        skinner.LoadSkin(next);
        if (skinner.loadedSkin != next) {
            state.SkipWithError("the skin has a fault");
            return;
        }
        first = !first;
    }
}
BENCHMARK(SkinLoaded)->Unit(benchmark::kMillisecond);

}  // namespace
