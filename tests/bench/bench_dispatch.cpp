#include "core/commanddispatcher.h"
#include "support/minimal.h"

#include <benchmark/benchmark.h>

namespace {

void DispatchFirstAndLastCommand(benchmark::State& state) {
    const auto bench = zvr::RunningBench();
    std::string command;
    for (auto _ : state) {
        command = "MediaPlayer.Prev";
        bench->program->commanddispatcher.dispatchCommand(command);
        command = "messagebox.no";
        bench->program->commanddispatcher.dispatchCommand(command);
    }
}
BENCHMARK(DispatchFirstAndLastCommand);

}  // namespace
