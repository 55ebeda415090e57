#include "core/settings.h"
#include "core/godfather.h"
#include "media/mediaplayer.h"
#include "radiogps/radio.h"
#include "support/bench.h"

#include <array>

using namespace zvr;

namespace {

std::string Ini(const std::string& section, const std::string& lines) {
    return "[general]\nSHOWWARNING=0\n[" + section + "]\n" + lines + "\n";
}

/// A value as the program reads it: what the file says going in, what a save writes coming out.
std::string RoundTrip(const std::string& section, const std::string& lines, const std::string& key) {
    Bench bench;
    bench.settings = Ini(section, lines);
    bench.Start();
    saveSettings(*bench.program);
    return readSetting(Profile::Load(bench.program->SettingsFile()), section, key, "(not written)");
}

/// A settings file that is there and isn't taken over.
class UnreadSettings : public testing::Test {
protected:
    Bench bench;
    const std::string file = bench.folder.path + "/zvr.ini";
    const std::string tooLarge = "[general]\nBRIGHTNESSDAY=2\n" + std::string(5U << 20U, ';');

    UnreadSettings() { bench.AnswerMessages(); }

    void End() { bench.program->UnloadRoot(true); }
};

}  // namespace

TEST_F(UnreadSettings, AreToldOnceAndKeptBesideTheNextOnes) {
    bench.folder.Write("zvr.ini", tooLarge);
    bench.folder.Write("zvr.ini.bad", "of an earlier time");
    bench.Start();
    ASSERT_THAT(bench.dialogs.plain, ElementsAre(AllOf(HasSubstr(file), HasSubstr("too large"))));
    EXPECT_EQ(bench.program->godfather.brightnessDay, 1);
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), tooLarge) << "the start writes nothing";
    bench.program->godfather.brightnessDay = 3;
    End();
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini.bad"), "of an earlier time");
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini.bad2"), tooLarge);
    bench.Restart();
    EXPECT_EQ(bench.program->godfather.brightnessDay, 3);
    EXPECT_EQ(bench.dialogs.plain.size(), 1U);
    End();
    EXPECT_FALSE(bench.folder.Has("zvr.ini.bad3"));
}

TEST_F(UnreadSettings, ArePutAsideAlsoWhenTheyCouldBeReadByNow) {
    std::filesystem::create_directories(file);
    bench.Start();
    ASSERT_EQ(bench.dialogs.plain.size(), 1U);
    std::filesystem::remove(file);
    bench.folder.Write("zvr.ini", "[general]\nBRIGHTNESSDAY=2\n");  // the card answers again
    saveSettings(*bench.program);
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini.bad"), "[general]\nBRIGHTNESSDAY=2\n");
    saveSettings(*bench.program);
    EXPECT_FALSE(bench.folder.Has("zvr.ini.bad2"));
}

TEST_F(UnreadSettings, AnEndWhileTheyAreToldLeavesNothingBehind) {
    bench.folder.Write("zvr.ini", tooLarge);
    bench.dialogs.onShow = [this](const std::string&) { End(); };
    bench.Start();
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_FALSE(bench.folder.Has("restore.bsf"));
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini.bad"), tooLarge);
}

TEST_F(UnreadSettings, AFileFullOfOtherThingsKeepsItsKeysAndDoesNotGrow) {
    for (const char junk : {'\xFC', ';'}) {
        const std::string full = "[general]\nBRIGHTNESSDAY=2\n" + std::string(3U << 20U, junk);
        Bench bench;
        bench.AnswerMessages();
        bench.folder.Write("zvr.ini", full);
        bench.Start();
        EXPECT_EQ(bench.program->godfather.brightnessDay, 2);
        saveSettings(*bench.program);
        EXPECT_EQ(bench.folder.ReadFile("zvr.ini.bad"), full);
        const std::string written = bench.folder.ReadFile("zvr.ini");
        EXPECT_LT(written.size(), 20'000U);
        EXPECT_THAT(written, HasSubstr("BRIGHTNESSDAY=2"));
        saveSettings(*bench.program);
        EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), written);
        EXPECT_TRUE(bench.dialogs.plain.empty());
    }
}

TEST(Settings, AFileThatIsMissingGivesEveryDefaultAndTheFirstSaveWritesEveryKey) {
    Bench bench;
    bench.settings = "";
    bench.AnswerMessages();
    bench.Start();
    saveSettings(*bench.program);
    const Profile written = Profile::Load(bench.program->SettingsFile());
    int keys = 0;
    for (const Setting& row : Settings()) {
        const bool isWritten = row.direction != Direction::readOnly && row.direction != Direction::elsewhereReadOnly;
        for (int i = row.elements == 0 ? 0 : 1; i <= row.elements; ++i) {
            const std::string key = std::string(row.key) + (row.elements == 0 ? "" : std::to_string(i));
            EXPECT_EQ(written.Value(row.section, key).has_value(), isWritten) << key;
            ++keys;
        }
    }
    EXPECT_GT(keys, 120);
    EXPECT_EQ(written.Value("mediaplayer", "playlistfolder"), bench.folder.path + "/playlists");
    EXPECT_EQ(written.Value("general", "DISPLAYFILENAMES"), "0") << "the copy that nobody reads";
}

TEST(Settings, ASaveReadsBackTheSameAndKeepsWhatItDoesNotKnow) {
    Bench bench;
    bench.settings =
        "; my car\n[General]\nshowwarning=0\nUSEDLANGUAGE=xx\n[mine]\nKEY=kept\n[radio]\nSTATION_3=10450\n";
    bench.Start();
    saveSettings(*bench.program);
    const std::string once = bench.folder.ReadFile("zvr.ini");
    EXPECT_THAT(once, AllOf(StartsWith("; my car\n"), HasSubstr("[mine]\nKEY=kept"), HasSubstr("USEDLANGUAGE=xx")));
    bench.loop.quitting = true;
    bench.Restart();
    EXPECT_EQ(bench.program->radio.getRadioStation(3), 10450);
    EXPECT_EQ(bench.program->usedLanguage, "xx");
    saveSettings(*bench.program);
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), once);
}

TEST(Settings, ValuesOutOfRangeAndOutOfForm) {
    const std::vector<std::array<std::string, 4>> cases{
        {"general", "BRIGHTNESSDAY=9", "BRIGHTNESSDAY", "1"},
        {"general", "SWITCHTODAY=0760", "SWITCHTODAY", "0700"},
        {"general", "SWITCHTODAY=700", "SWITCHTODAY", "0700"},
        {"general", "USENIGHTSKIN=yes", "USENIGHTSKIN", "0"},
        {"general", "USENIGHTSKIN=1.0", "USENIGHTSKIN", "1"},
        {"general", "USEDNIGHTSKIN=", "USEDNIGHTSKIN", "Dark&Silver 800x600"},
        {"general", "ONAPPEND=explode", "ONAPPEND", "donothing"},
        {"general", "QUICKJUMPLIST=A;x|B|A;y|C;z;w|D;y", "QUICKJUMPLIST", "A;x|D;y"},
        {"general", "QUICKJUMPLIST=", "QUICKJUMPLIST", ""},
        {"mediaplayer", "FILEEXTENSIONSAUDIO=.mp3;wav", "FILEEXTENSIONSAUDIO", "mp3;wav;wma;mid"},
        {"mediaplayer", "FILEEXTENSIONSAUDIO=MP3;WAV", "FILEEXTENSIONSAUDIO", "mp3;wav"},
        {"mediaplayer", "STARTUPVOLUME=101", "STARTUPVOLUME", ""},
        {"mediaplayer", "STARTUPVOLUME=040", "STARTUPVOLUME", "40"},
        {"mediaplayer", "STARTUPVOLUME=12.50%", "STARTUPVOLUME", "12.5"},
        {"mediaplayer", "STARTUPVOLUME=100.4", "STARTUPVOLUME", ""},
        {"mediaplayer", "SKIPSECONDS=0.6", "SKIPSECONDS", "5"},
        {"mediaplayer", "SKIPSECONDS=60.4", "SKIPSECONDS", "5"},
        {"mediaplayer", "SKIPSECONDS=59.6", "SKIPSECONDS", "60"},
        {"gallery", "FILEEXTENSTIONS=", "FILEEXTENSTIONS", "jpg;jpeg;gif;bmp"},
        {"dvdplayer", "DRIVELETTER=E:", "DRIVELETTER", "e:"},
        {"dvdplayer", "DRIVELETTER=E:\\", "DRIVELETTER", ""},
        {"externalapps", "NAVIQUICKBAR=Floating", "NAVIQUICKBAR", "docked"},
        {"externalapps", "FLOATINGWINDOWX=801", "FLOATINGWINDOWX", "-1"},
        {"radio", "FREQLOWERBOUND=10800\nFREQUPPERBOUND=8700", "FREQLOWERBOUND", "8700"},
        {"radio", "FREQLOWERBOUND=10800\nFREQUPPERBOUND=8700", "FREQUPPERBOUND", "10800"},
        {"radio", "LASTFREQUENCY=5000", "LASTFREQUENCY", "8700"},
        {"gps", "COMSETTINGS=", "COMSETTINGS", ""},
    };
    for (const auto& [section, lines, key, saved] : cases) {
        EXPECT_EQ(RoundTrip(section, lines, key), saved) << lines;
    }
}

TEST(Settings, QuickJumpTextsLoseTheirSeparatorsAtSave) {
    Bench bench;
    bench.Start();
    bench.program->godfather.quickJumpList = {{"a;b|c", "x|y"}};
    saveSettings(*bench.program);
    EXPECT_EQ(Profile::Load(bench.program->SettingsFile()).Value("general", "QUICKJUMPLIST"), "a b c;x y");
}
