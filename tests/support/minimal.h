#pragma once

#include "support/bench.h"

#include <memory>

namespace zvr {

/// A bench in its main menu whose message boxes close by themselves: for fuzzing and measuring.
inline std::unique_ptr<Bench> RunningBench() {
    auto bench = std::make_unique<Bench>();
    bench->Start();
    bench->AnswerMessages();
    return bench;
}

}  // namespace zvr
