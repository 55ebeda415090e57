#include "phone/phone.h"
#include "platform/headless/tcpclient.h"
#include "support/minimal.h"

#include <benchmark/benchmark.h>

namespace {

std::string BookOf(long entries) {
    std::string frame = "<PhoneBook id=\"ME\">";
    for (long i = 0; i < entries; ++i) {
        frame += "<PhoneBookEntry><Name>Surname, Given Name " + std::to_string(i) + "</Name><Number>+49 30 23125 " +
                 std::to_string(i) + "</Number><Type>/M</Type></PhoneBookEntry>";
    }
    return frame + "</PhoneBook>\r";
}

// As a socket delivers it. What counts is what the driver waits for behind the last piece, and that the pieces before
// it cost in proportion to their number.
void PhoneBookShown(benchmark::State& state, bool lastPieceAlone) {
    const auto bench = zvr::RunningBench();
    zvr::Phone& phone = bench->program->phone;
    const std::string frame = BookOf(state.range(0));
    constexpr std::size_t piece = 1400;
    phone.wskMain.state->phase = zvr::SocketState::connected;
    const auto arrive = [&](std::string_view bytes) {
        phone.wskMain.state->received = bytes;
        phone.wskMain.onDataArrival();
    };
    const std::size_t last = (frame.size() - 1) / piece * piece;
    for (auto _ : state) {
        if (lastPieceAlone) {
            state.PauseTiming();
        }
        phone.GetPhonebook();  // empties the list
        for (std::size_t at = 0; at < last; at += piece) {
            arrive(std::string_view(frame).substr(at, piece));
        }
        if (lastPieceAlone) {
            state.ResumeTiming();
        }
        arrive(std::string_view(frame).substr(last));
    }
    if (phone.phonebooklist->grid->RowCount() != state.range(0)) {
        state.SkipWithError("rows are missing");
    }
}
BENCHMARK_CAPTURE(PhoneBookShown, behind_the_last_piece, true)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PhoneBookShown, in_all, false)->Arg(10'000)->Arg(30'000)->Unit(benchmark::kMillisecond);

}  // namespace
