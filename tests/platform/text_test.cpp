#include "platform/text.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace zvr;

TEST(Text, LowersEachCharacterOfEveryScript) {
    EXPECT_EQ(text::Lower("MediaPlayer.PLAY 1"), "mediaplayer.play 1");
    EXPECT_EQ(text::Lower("\u00C4\u00D6\u00DC \u0416 \u03A3\u03A3"), "\u00E4\u00F6\u00FC \u0436 \u03C3\u03C3");
    EXPECT_EQ(text::Lower("\U00010400"), "\U00010428");
    EXPECT_EQ(text::Lower("A\xC4Z\xE2\x82"), "a\xC4z\xE2\x82") << "broken bytes are carried through";
    EXPECT_EQ(text::Lower(std::string_view("A\0B", 3)), std::string("a\0b", 3));
    EXPECT_EQ(text::Lower(""), "");
}

namespace {

/// Writes a Sunday in the afternoon, in every format, and ends the process.
[[noreturn]] void WriteInLocale(const char* locale) {
    ::setenv("LC_ALL", locale, 1);
    constexpr LocalTime time{1'741'525'509'999};  // 2025-03-09 13:05:09.999
    for (const auto format : {text::TimeFormat::shortTime, text::TimeFormat::longTime, text::TimeFormat::shortDate,
                              text::TimeFormat::longDate}) {
        std::fprintf(stderr, "%s|", text::Format(time, format).c_str());
    }
    std::exit(0);
}

}  // namespace

// The locale is settled at the first use in a process, so each one gets a process of its own.
TEST(TextDeathTest, FormatsTimesInTheUsersLocale) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(WriteInLocale("de_DE.UTF-8"), testing::ExitedWithCode(0),
                "13:05\\|13:05:09\\|09\\.03\\.25\\|Sonntag, 9\\. M\u00E4rz 2025\\|");
    EXPECT_EXIT(WriteInLocale("en_US.UTF-8"), testing::ExitedWithCode(0),
                "1:05 PM\\|1:05:09 PM\\|3/9/25\\|Sunday, March 9, 2025\\|");
    EXPECT_EXIT(WriteInLocale("C"), testing::ExitedWithCode(0), "Sunday, March 9, 2025\\|");
    EXPECT_EXIT(WriteInLocale("no such locale"), testing::ExitedWithCode(0), "2025\\|");
}
