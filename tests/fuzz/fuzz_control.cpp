#include "support/minimal.h"

#include "platform/text.h"

#include <algorithm>
#include <cstdlib>

// Any line from the control socket gets exactly one answer, and that answer is one line.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const auto bench = zvr::RunningBench();
    std::string line(reinterpret_cast<const char*>(data), std::min(size, zvr::LocalServer::longestLine));
    std::erase(line, '\n');
    if (zvr::text::Lower(line).find("app.exit") != std::string::npos) {
        return 0;
    }
    auto& answers = bench->platform.server.state->answers[1];
    answers.clear();
    bench->platform.server.onLine(1, line);
    bench->Advance(zvr::Milliseconds{30});
    bench->messages.clear();
    // Who follows something may hear of news at once.
    const bool follows = line == "look follow" || line == "log follow" || line.starts_with("watch ");
    const bool oneLine = (answers.size() == 1 || (follows && answers.size() > 1)) &&
                         answers[0].find('\n') == std::string::npos && answers[0].front() == '{';
    bench->platform.server.onGone(1);
    if (!oneLine) {
        std::abort();
    }
    return 0;
}
