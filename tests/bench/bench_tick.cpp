#include "bench/allocations.h"
#include "bench/defaultskins.h"
#include "core/tick.h"
#include "media/mediaplayer.h"
#include "skin/skinner.h"

#include <benchmark/benchmark.h>

namespace {

/// One tick with a title that runs; no second passes, so that nothing but the title is news.
void TickOfAllForms(benchmark::State& state) {
    if (zvr::DefaultSkins().empty()) {
        state.SkipWithError("the default skins are not drawn");
        return;
    }
    const auto bench = zvr::BenchWithDefaultSkins();
    zvr::PlayQueue& wmp = bench->program->mediaplayer.wmp;
    wmp.AppendItem("/music/A song with a title of an ordinary length.mp3");
    wmp.Play();
    bench->Advance(zvr::Milliseconds{500});
    wmp.Pause();
    bench->Advance(zvr::Milliseconds{20'000});  // once through the ring, so that every buffer has its size
    bench->program->tick.Run();                 // marks the title as to be painted, once
    const std::size_t before = zvr::Allocations();
    for (int i = 0; i < 200; ++i) {
        bench->program->tick.Run();
    }
    const std::size_t made = zvr::Allocations() - before;
    for (auto _ : state) {
        bench->program->tick.Run();
    }
    std::size_t labels = 0;
    for (const auto& form : bench->program->skinner.placeholders.forms) {
        labels += form.labels.size();
    }
    state.counters["labels"] = static_cast<double>(labels);
    state.counters["allocations"] = static_cast<double>(made);
    if (made > 0) {
        state.SkipWithError(("a tick without news allocates, " + std::to_string(made) + " times in 200").c_str());
    }
}
BENCHMARK(TickOfAllForms);

}  // namespace
