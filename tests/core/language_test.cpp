#include "core/language.h"

#include "core/languagekeys.h"
#include "support/bench.h"
#include "support/paths.h"

#include <algorithm>
#include <set>
#include <sstream>

using namespace zvr;

namespace {

const std::string shipped = std::string(ZVR_SOURCE_DIR) + "/data";

std::string ShippedText(const std::string& language) {
    return files::Read(shipped + "/lang/" + language + ".ini").value_or("");
}

/// Lines of the file as a translator sees them: a profile would hide what stands twice.
std::multimap<std::string, std::string> Lines(const std::string& language) {
    std::multimap<std::string, std::string> lines;
    std::istringstream file(ShippedText(language));
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != ';') {
            const std::size_t equals = std::min(line.find('='), line.size());
            lines.emplace(line.substr(0, equals), line.substr(std::min(equals + 1, line.size())));
        }
    }
    return lines;
}

/// A program folder whose English is whole but for the given keys.
void WriteEnglishWithout(const TemporaryFolder& folder, const std::set<std::string>& missing) {
    std::string text = "[strings]\n";
    for (const std::string_view key : languageKeys) {
        if (missing.count(std::string(key)) == 0) {
            text += std::string(key) + "=English " + std::string(key) + "\n";
        }
    }
    folder.Write("lang/en.ini", text);
}

}  // namespace

class LanguageFile : public testing::TestWithParam<const char*> {};

TEST_P(LanguageFile, HasEachKeyOnceAndNoOther) {
    auto lines = Lines(GetParam());
    EXPECT_EQ(lines.erase("[strings]"), 1U);
    std::set<std::string> wanted(languageKeys.begin(), languageKeys.end());
    ASSERT_EQ(wanted.size(), languageKeys.size()) << "a key stands twice in the list";
    for (const auto& [key, text] : lines) {
        EXPECT_EQ(lines.count(key), 1U) << key;
        EXPECT_EQ(wanted.count(key), 1U) << key << " is no key of the program";
    }
    for (const std::string& key : wanted) {
        EXPECT_EQ(lines.count(key), 1U) << key << " is missing";
    }
}

TEST_P(LanguageFile, ReadsEachTextAsItIsWritten) {
    const Profile profile = Profile::Load(shipped + "/lang/" + GetParam() + ".ini");
    for (const auto& [key, text] : Lines(GetParam())) {
        if (key != "[strings]") {
            EXPECT_FALSE(text.empty()) << key;
            EXPECT_EQ(profile.Value("strings", key), text) << key << ": a blank or a quote at its end gets lost";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, LanguageFile, testing::Values("en", "de"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST(Language, ShowsTheUsersLanguageAndEnglishForWhatItLacks) {
    const TemporaryFolder folder;
    WriteEnglishWithout(folder, {"SHUTDOWN_QUIT"});
    folder.Write("lang/xx.ini",
                 "[strings]\nSHUTDOWN_QUIT=Slut\nshutdown_title = \"Nu\"\nSHUTDOWN_REBOOT=\nSHUTDOWN_CANCEL=\"\"\n"
                 "[other]\nQUICKJUMP_OK=wrong section\n");
    LanguageTable table;
    ASSERT_EQ(table.loadLanguage(folder.path, "xx"), "") << "a gap of English that the language fills is none";
    EXPECT_EQ(table.languageText("SHUTDOWN_QUIT"), "Slut");
    EXPECT_EQ(table.languageText("SHUTDOWN_TITLE"), "Nu");
    EXPECT_EQ(table.languageText("SHUTDOWN_REBOOT"), "English SHUTDOWN_REBOOT");
    EXPECT_EQ(table.languageText("SHUTDOWN_CANCEL"), "English SHUTDOWN_CANCEL");
    EXPECT_EQ(table.languageText("QUICKJUMP_OK"), "English QUICKJUMP_OK");

    folder.Write("lang/xx.ini", "[strings]\nSHUTDOWN_QUIT=Later\n");
    EXPECT_EQ(table.languageText("SHUTDOWN_QUIT"), "Slut") << "an edit counts from the next start on";
}
