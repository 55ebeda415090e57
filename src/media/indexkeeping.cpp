#include "core/program.h"
#include "media/index/indexformat.h"
#include "media/mediasearch.h"
#include "platform/platform.h"

#include <array>
#include <cstdint>
#include <utility>

namespace zvr {
namespace {

// In ticks, which are seconds: the machine has other things to do at a start.
constexpr int firstCheck = 20;
constexpr int laterChecks = 1800;

constexpr std::array<std::int64_t, 4> mostDays{0, 1, 7, 30};  ///< by `refreshTimespan`
constexpr std::int64_t ageOfNone = 9999;                      ///< days

std::int64_t DayOf(const LocalTime& time) {
    constexpr std::int64_t day = 86'400'000;
    return time.milliseconds / day;
}

/// As one word of a command line.
std::string Quoted(const std::string& word) {
    const char quote = word.find('"') == word.npos ? '"' : '\'';
    std::string text(1, quote);
    for (const char letter : word) {
        // A word with quotes of both kinds consists of pieces.
        text += letter == quote ? R"('"'"')" : std::string(1, letter);
    }
    return text + quote;
}

}  // namespace

std::string MediaSearch::IndexFile() const {
    return program.place.folder + files::separator + std::string(indexFileName);
}

void MediaSearch::CreateIndex() {
    if (std::exchange(creatingIndex, true)) {
        return;
    }
    ShowReadiness();
    const auto ended = std::make_shared<bool>(false);
    const auto indexer = program.platform.processes.Start(
        Quoted(program.place.folder + files::separator + "indexer") + " 347 " + Quoted(indexBaseFolder),
        {.state = StartState::withoutFocus, .ended = [ended] { *ended = true; }});
    if (indexer) {
        program.platform.loop.WaitUntil("the indexer", [&ended] { return *ended; });
    }
    creatingIndex = false;
    if (mediaSearchResult.empty() && shown != nullptr && indexIsLoaded) {
        ShowCount();  // the rows stand since before
    } else if (mediaSearchResult.empty()) {
        ShowReadiness();
    }
    if (!indexer) {
        program.showMessage(program.languageText("MEDIASEARCH_INDEXER_ERROR"));
    }
}

void MediaSearch::CheckIndexAge() {
    // A skin that is loaded meanwhile has started the timer again.
    if (checkingAge) {
        return;
    }
    tmrCheckIndex.Stop();
    if (++checkTicks < (checkedAge ? laterChecks : firstCheck)) {
        tmrCheckIndex.Start();
        return;
    }
    checkTicks = 0;
    if (refreshTimespan == 0) {
        return;
    }
    checkingAge = true;
    const bool wanted = IsOutOfDate() && (!askBeforeIndexBuild ||
                                          program.showMessage(program.languageText("MEDIASEARCH_INDEX_OUTOFDATE"),
                                                              MessageButtons::yesNo) == MessageAnswer::yes);
    if (wanted) {
        CreateIndex();
    }
    checkingAge = false;
    checkedAge = true;
    if (!program.platform.loop.IsQuitting()) {
        tmrCheckIndex.Start();
    }
}

bool MediaSearch::IsOutOfDate() const {
    const auto written = files::Modified(IndexFile());
    const std::int64_t age = written ? DayOf(program.platform.loop.Now()) - DayOf(*written) : ageOfNone;
    return age >= mostDays[static_cast<std::size_t>(refreshTimespan)];
}

}  // namespace zvr
