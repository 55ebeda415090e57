#include "platform/log.h"
#include "support/matchers.h"

#include <unistd.h>

#include <array>

using namespace zvr;

TEST(LogTest, LineNamesMomentLevelAndValues) {
    Log::Warning("{} is not {}: {}", "/a/b", std::string("read"), 12U);
    EXPECT_THAT(Log::Lines().back(),
                MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8} warning: /a/b is not read: 12"));
    Log::Note("{} and {}", "one");
    EXPECT_THAT(Log::Lines().back(), EndsWith(" note: one and {}"));
    Log::Error("a\nb\x7f\xff\u00FC {}\t", "{}");
    EXPECT_THAT(Log::Lines().back(), EndsWith(" error: a?b??\u00FC {}?")) << "one line, and a value is no pattern";
}

TEST(LogTest, FloodOfEqualLinesIsOneLineAndOthersStay) {
    Log::Note("flood begins");
    const std::size_t before = Log::Lines().size();
    std::uint64_t read = Log::LastNumber();
    std::size_t told = 0;
    for (int i = 1; i <= 2000; ++i) {
        Log::Warning("the card is full");
        Log::Warning("and the stick has gone");
        told += Log::News(read).size();
        read = Log::LastNumber();
    }
    EXPECT_EQ(told, 2U * 4U) << "at the first, the 10th, the 100th and the 1000th time";
    const auto lines = Log::Lines();
    ASSERT_EQ(lines.size(), std::min(before + 2, Log::mostLines));
    EXPECT_THAT(lines[lines.size() - 2], MatchesRegex(".*the card is full \\(2000 times since .*\\)"));
    EXPECT_THAT(lines[lines.size() - 3], HasSubstr("flood begins"));
    Log::Error("the card is full");
    EXPECT_THAT(Log::Lines().back(), EndsWith("error: the card is full")) << "of another level, so another line";
}

TEST(LogTest, StandardErrorNeitherHoldsUpNorKills) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const int standardError = ::dup(STDERR_FILENO);
    ::dup2(pipe[1], STDERR_FILENO);
    ::close(pipe[1]);
    Log::UseStandardError(true);
    Log::Warning("to standard error");
    Log::Warning("to standard error");
    std::array<char, 256> bytes{};
    const ssize_t count = ::read(pipe[0], bytes.data(), bytes.size());
    for (int i = 0; i < 5000; ++i) {
        Log::Note("nobody reads this, {}", i);  // more than a pipe holds
    }
    ::close(pipe[0]);
    Log::Note("nobody can read this");
    Log::UseStandardError(false);
    ::dup2(standardError, STDERR_FILENO);
    ::close(standardError);
    EXPECT_EQ(std::string(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))),
              "zvr: warning: to standard error\n");
    EXPECT_THAT(Log::Lines().back(), EndsWith("nobody can read this"));
}
