#include "ui/textfit.h"

#include "platform/text.h"
#include "support/matchers.h"

using namespace zvr;

namespace {

/// Each character is as wide as a typewriter's, 10 pixels, and 20 high.
Size Measure(std::string_view line, double scale) {
    return {static_cast<int>(10 * scale * static_cast<double>(text::Length(line))), static_cast<int>(20 * scale)};
}

std::vector<std::string> Lines(std::string_view text, int width, int lines) {
    return FitText(text, {width, 20 * lines}, Measure).lines;
}

}  // namespace

TEST(TextFit, BreaksAtBlanksBehindSlashesAndInTheEndAnywhere) {
    EXPECT_THAT(Lines("one two three", 80, 3), ElementsAre("one two", "three"));
    EXPECT_THAT(Lines("one\r\n\ntwo", 80, 3), ElementsAre("one", "", "two"));
    EXPECT_THAT(Lines("In /media/stick/programs on", 110, 4), ElementsAre("In", "/media/", "stick/", "programs on"));
    EXPECT_THAT(Lines("äöüäöüäö", 50, 2), ElementsAre("äöüäö", "üäö"));
    EXPECT_THAT(Lines("abc", 10, 3), ElementsAre("a", "b", "c"));
    EXPECT_THAT(Lines("", 50, 2), ElementsAre(""));
}

TEST(TextFit, APathTooMuchForTheRoomLosesItsMiddleAndKeepsItsEnd) {
    const std::string path = "/" + std::string(60, 'a') + "/" + std::string(60, 'b') + "/song.mp3";
    const FittedText fitted = FitText("Missing: " + path + " !", {200, 60}, Measure);
    ASSERT_LE(fitted.lines.size(), 3U);
    EXPECT_EQ(fitted.scale, 1);
    std::string all;
    for (const std::string& line : fitted.lines) {
        EXPECT_LE(text::Length(line), 20U);
        all += line;
    }
    EXPECT_THAT(all, StartsWith("Missing:/aaaa"));
    EXPECT_THAT(all, HasSubstr("…"));
    EXPECT_THAT(all, EndsWith("bb/song.mp3 !"));
    EXPECT_EQ(text::Length(all), 48U) << "no more is lost than must be";
}

TEST(TextFit, ALongTaleIsSetSmallerAndThenEndsInAnEllipsis) {
    std::string tale;
    for (int i = 0; i < 12; ++i) {
        tale += (i == 0 ? "" : " ") + std::string("word") + std::to_string(i);
    }
    EXPECT_EQ(FitText(tale, {200, 100}, Measure).scale, 1);
    EXPECT_EQ(FitText(tale, {200, 66}, Measure).scale, 0.8);
    const FittedText cut = FitText(tale, {190, 32}, Measure);
    ASSERT_EQ(cut.lines.size(), 2U);
    EXPECT_EQ(cut.lines.back(), "word4 word5 word6 word…");
}

TEST(TextFit, NoRoomAtAllAndBytesThatAreNoTextComeToAnEnd) {
    for (const Size room : {Size{0, 0}, Size{-5, 10}, Size{5, 100'000}, Size{1000, 0}}) {
        EXPECT_FALSE(FitText(std::string(5000, 'x') + "\xFF\xFE / \\ \n", room, Measure).lines.empty());
    }
}
