#include "platform/profile.h"

#include "support/bench.h"

using namespace zvr;

namespace {

std::optional<std::string> In(std::string_view text, std::string_view section, std::string_view key) {
    return Profile::Parse(text).Value(section, key);
}

/// The file after one change.
std::string Changed(std::string_view text, std::string_view section, std::string_view key, std::string_view value) {
    Profile profile = Profile::Parse(text);
    profile.SetValue(section, key, value);
    return profile.Text();
}

}  // namespace

TEST(Profile, FindsSectionAndKeyWithoutRegardToCase) {
    constexpr std::string_view text = "[General]\nUsedSkin=Plain\n[ Media Player ]\n volume = 7 \n";
    EXPECT_EQ(In(text, "GENERAL", "USEDSKIN"), "Plain");
    EXPECT_EQ(In(text, "media player", "VOLUME"), "7");
    EXPECT_EQ(In(text, "general", "volume"), std::nullopt);
    EXPECT_EQ(In(text, "gener", "usedskin"), std::nullopt);
    EXPECT_EQ(In(text, "general", "usedskins"), std::nullopt);
}

TEST(Profile, TakesTheFirstOfSeveral) {
    constexpr std::string_view text = "[a]\nk=1\nK=2\n[b]\nk=3\n[A]\nk=4\nother=5\n";
    EXPECT_EQ(In(text, "a", "k"), "1");
    EXPECT_EQ(In(text, "a", "other"), "5") << "a section may go on further below";
    EXPECT_EQ(Changed(text, "a", "k", "9"), "[a]\nk=9\nK=2\n[b]\nk=3\n[A]\nk=4\nother=5\n");
}

TEST(Profile, CutsBlanksAndOnePairOfQuotes) {
    EXPECT_EQ(In("[a]\nk=\t a b \t\n", "a", "k"), "a b");
    EXPECT_EQ(In("[a]\nk= \" a \" \n", "a", "k"), " a ");
    EXPECT_EQ(In("[a]\nk='it'\n", "a", "k"), "it");
    EXPECT_EQ(In("[a]\nk=\"\"x\"\"\n", "a", "k"), "\"x\"");
    EXPECT_EQ(In("[a]\nk=\"open\n", "a", "k"), "\"open");
    EXPECT_EQ(In("[a]\nk=\"\n", "a", "k"), "\"");
    EXPECT_EQ(In("[a]\nk=a=b;c # d\n", "a", "k"), "a=b;c # d");
}

TEST(Profile, PassesOverCommentsAndWhatStandsAboveTheFirstSection) {
    constexpr std::string_view text = "k=0\n;k=1\n[a] ; tail\n  ; k=2\n#k=3\n[broken\nk=4\n";
    EXPECT_EQ(In(text, "a", "k"), "4");
    EXPECT_EQ(In(text, "a", "; k"), std::nullopt);
    EXPECT_EQ(In(text, "", "k"), std::nullopt);
}

TEST(Profile, LeavesEverythingButTheChangedLineAlone) {
    constexpr std::string_view text =
        "; mine\r\n\r\n[a]\r\nOne = 1\r\n  two=2  \r\njunk\r\n; of b\r\n[b]\r\nx=\"y\"\r\n";
    EXPECT_EQ(Profile::Parse(text).Text(), text);
    EXPECT_EQ(Changed(text, "A", "ONE", "uno"),
              "; mine\r\n\r\n[a]\r\nOne=uno\r\n  two=2  \r\njunk\r\n; of b\r\n[b]\r\nx=\"y\"\r\n");
    EXPECT_EQ(Changed(text, "a", "Three", "3"),
              "; mine\r\n\r\n[a]\r\nOne = 1\r\n  two=2  \r\nThree=3\r\njunk\r\n; of b\r\n[b]\r\nx=\"y\"\r\n");
    EXPECT_EQ(Changed(text, "b", "x", "y"), text) << "a line that says the same keeps its spelling";
}

TEST(Profile, AddsKeysAtTheEndOfTheirSectionAndSectionsAtTheEnd) {
    EXPECT_EQ(Changed("", "a", "k", "1"), "[a]\nk=1\n");
    EXPECT_EQ(Changed("[a]\n\n[b]\n", "a", "k", "1"), "[a]\nk=1\n\n[b]\n");
    EXPECT_EQ(Changed("[a]\nx=1", "a", "y", "2"), "[a]\nx=1\ny=2\n") << "the last line lacked its end";
    EXPECT_EQ(Changed("[a]", "a", "y", "2"), "[a]\ny=2\n");
    EXPECT_EQ(Changed("[a]\nx=1", "b", "y", "2"), "[a]\nx=1\n\n[b]\ny=2\n");
}

TEST(Profile, GivesBackEachValueThatItWrote) {
    for (const std::string value : {"plain", "", " blank before", "blank behind\t", "\"quoted\"", "'quoted'", "\"", "'",
                                    "\"a' 'b\"", "[a]", ";no comment", "#none", "k=2", "a;b|c",
                                    "\u00E4 \u65E5\u672C \U0001F697", "C:\\Music\\", "\"/opt/my app/run\" -x"}) {
        for (const std::string_view text : {"", "[a]\nk=old\n", "[A]\r\nK='old'"}) {
            Profile profile = Profile::Parse(text);
            profile.SetValue("a", "k", value);
            EXPECT_EQ(profile.Value("a", "k"), value);
            EXPECT_EQ(In(profile.Text(), "a", "k"), value) << profile.Text();
        }
    }
    EXPECT_EQ(In(Changed("[a]\n", "a", "k", "x\r\n[b]\ny=1"), "a", "k"), "x  [b] y=1");
    EXPECT_EQ(In(Changed("[a]\n", "a", "k", "x\n[b]\ny=1"), "b", "y"), std::nullopt);
    const std::string withNul("a\0b", 3);
    EXPECT_EQ(In(Changed("[a]\n", "a", "k", withNul), "a", "k"), withNul);
}

TEST(Profile, ReadsEachLineInTheCodeItIsWrittenIn) {
    constexpr std::string_view mixed = "[a]\nold=M\xFCnchen\nnew=M\xC3\xBCnchen\n";
    EXPECT_EQ(In(mixed, "a", "old"), "M\u00FCnchen");
    EXPECT_EQ(In(mixed, "a", "new"), "M\u00FCnchen");
    EXPECT_EQ(In("\xEF\xBB\xBF[a]\nk=1\n", "a", "k"), "1");
    EXPECT_EQ(Profile::Parse("\xEF\xBB\xBF[a]\nk=1\n").Text(), "[a]\nk=1\n");
    EXPECT_EQ(Profile::Parse(mixed).Text(), mixed) << "bytes that nobody changes neither change nor grow";
    EXPECT_EQ(Changed(mixed, "a", "old", "M\u00FCnchen"), mixed) << "nor those that say the same already";
    Profile profile;
    profile.SetValue("a", "k", "\xFC");
    EXPECT_EQ(profile.Value("a", "k"), In(profile.Text(), "a", "k"));
}

TEST(Profile, ReadsBothByteOrdersOfUtf16AndWritesUtf8) {
    for (const bool bigEndian : {false, true}) {
        const std::u16string_view wide = u"\uFEFF[a]\r\nk=M\u00FC\u20AC\U0001F697\r\nbroken=\xD83Dx";
        std::string file;
        for (const char16_t unit : wide) {
            const char low = static_cast<char>(unit & 0xFFU);
            const char high = static_cast<char>(unit >> 8U);
            file += bigEndian ? std::string{high, low} : std::string{low, high};
        }
        EXPECT_EQ(In(file, "a", "k"), "M\u00FC\u20AC\U0001F697");
        EXPECT_EQ(Changed(file, "b", "l", "2"),
                  "[a]\r\nk=M\u00FC\u20AC\U0001F697\r\nbroken=\uFFFDx\r\n\r\n[b]\r\nl=2\r\n");
        EXPECT_EQ(In(file + "\n", "a", "broken"), "\uFFFDx") << "half a character at the end";
    }
}
