#include "target.h"

#include "support/minimal.h"

#include "platform/text.h"

// Any line from the control socket gets exactly one answer, and that answer is one line.
void zvr::Try(std::string_view input) {
    static const auto bench = zvr::RunningBench();
    std::string line(input.substr(0, LocalServer::longestLine));
    std::erase(line, '\n');
    if (zvr::text::Lower(line).find("app.exit") != std::string::npos) {
        return;
    }
    auto& answers = bench->platform.server.state->answers[1];
    answers.clear();
    bench->platform.server.onLine(1, line);
    bench->Advance(zvr::Milliseconds{30});
    bench->messages.clear();
    // Who follows something may hear of news at once.
    const bool follows = line == "look follow" || line == "log follow" || line.starts_with("watch ");
    Require(answers.size() == 1 || (follows && answers.size() > 1));
    Require(answers[0].find('\n') == std::string::npos && answers[0].front() == '{');
    bench->platform.server.onGone(1);
}
