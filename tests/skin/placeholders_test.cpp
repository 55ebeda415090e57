#include "skin/placeholders.h"
#include "core/mainmenu.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"
#include "system/clsvolume.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"

using namespace zvr;

namespace {

#define NBSP "\xC2\xA0"

class PlaceholdersTest : public SkinTest {
protected:
    void SetUp() override {
        for (const Placeholder& row : Placeholders()) {
            bench.skin.labels["mainmenu"].emplace_back(row.token);
        }
        bench.skin.labels["radio"] = {"**RADIOFREQUENCY**", "plain"};
        bench.Start();
    }

    std::string After(Milliseconds time, const std::string& token) {
        bench.Advance(time);
        return bench.LabelText(bench.program->mainmenu.form, token);
    }
    std::string Now(const std::string& token) { return After(Milliseconds{100}, token); }

    void PlayFile(const std::string& address, const std::string& title, double duration = 100) {
        bench.platform.media.state->titles[address] = title;
        bench.platform.media.state->durations[address] = duration;
        PlayQueue& wmp = bench.program->mediaplayer.wmp;
        wmp.NewPlaylist();
        wmp.AppendItem(address);
        wmp.Play();
        bench.Advance(Milliseconds{300});
        wmp.Pause();
        bench.Advance(Milliseconds{100});
    }

    Control& TitleLabel() {
        for (Control* control : bench.program->mainmenu.form.Controls()) {
            if (control->Tag() == "**MEDIATITLE**") {
                return *control;
            }
        }
        throw std::runtime_error("no title");
    }

    /// The captions of one round of the ring, from its first character on.
    std::vector<std::string> Round(int length) {
        Control& label = TitleLabel();
        label.helpId = label.titleCharacters * 100 + length;  // the last place
        while (label.helpId != label.titleCharacters * 100 + 1) {
            bench.Advance(Milliseconds{100});
        }
        std::vector<std::string> captions;
        for (int i = 0; i < length; ++i) {
            captions.push_back(label.caption);
            bench.Advance(Milliseconds{200});
        }
        return captions;
    }
};

}  // namespace

TEST_F(PlaceholdersTest, WhileTheIndexIsMadeTheLabelGrowsButNotWithoutEnd) {
    bench.program->mediasearch.creatingIndex = true;
    const std::string piece = NBSP + WithoutBreaks(bench.program->languageText("MEDIASEARCH_STATUS_CREATINGINDEX"));
    EXPECT_EQ(Now("**MEDIASEARCHRESULT**"), piece);
    EXPECT_EQ(Now("**MEDIASEARCHRESULT**"), piece + piece);
    const std::string full = After(Milliseconds{60'000}, "**MEDIASEARCHRESULT**");
    EXPECT_NEAR(static_cast<double>(full.size()), 4096, static_cast<double>(piece.size()));
    EXPECT_EQ(Now("**MEDIASEARCHRESULT**"), full);
}

TEST_F(PlaceholdersTest, StandWithoutAnyDataAndThenShowTheVariablesOfTheModules) {
    Program& program = *bench.program;
    const std::vector<std::array<std::string, 3>> cases{
        {"**CURRENTGALLERYFOLDER**", WithoutBreaks(program.languageText("GALLERY_FOLDERERROR")), "my" NBSP "pictures"},
        {"**MEDIASEARCHRESULT**", "", "2" NBSP "files"},
        {"**PHONEBATTERY**", "---", "80" NBSP "%"},
        {"**PHONESIGNAL**", "---", "4" NBSP "of" NBSP "5"},
        {"**PHONESTATUS**", "", "in" NBSP "a" NBSP "call"},
        {"**SMSCHARS**", "0", "3"},
        {"**UNREADSMS**", "0", "3"},
        {"**GPS_SATNUM**", "---", "07"},
        {"**GPS_SPEED**", "---", "88 km/h"},
        {"**GPS_POSITION**", "---", "52 N"},
        {"**GPS_ALTITUDE**", "---", "34 m"},
        {"**RADIOFREQUENCY**", "87.00", "104.05"},
    };
    bench.Advance(Milliseconds{100});
    const auto text = [&](const std::string& token) { return bench.LabelText(program.mainmenu.form, token); };
    for (const auto& [token, atRest, then] : cases) {
        EXPECT_EQ(text(token), atRest) << token;
    }
    EXPECT_EQ(text("**MEDIATITLE**"), WithoutBreaks(program.languageText("MEDIAPLAYER_READY")));
    EXPECT_EQ(text("**MEDIAPOSITION**"), "00:00");
    EXPECT_EQ(bench.LabelText(program.radio.form, "**RADIOFREQUENCY**"), "87.00") << "hidden forms too";
    program.phone.phoneBattery = "80 %";
    program.phone.phoneSignal = "4 of 5";
    program.phone.phoneStatus = "in a call";
    program.phone.unreadSMS = 3;
    program.smsbox.smstextbox->SetText("\xC3\xA4 b");
    program.gps.Gsatnum = "07";
    program.gps.Gspeed = "88";
    program.gps.Gposition = "52 N";
    program.gps.Galtitude = "34 m";
    program.radio.currentFreq = 10405;
    program.gallery.currentFolder = "/a/my pictures";
    program.mediasearch.mediaSearchResult = "2 files";
    program.mediasearch.creatingIndex = true;
    bench.Advance(Milliseconds{100});
    for (const auto& [token, atRest, then] : cases) {
        EXPECT_EQ(text(token), then) << token;
    }
    program.gps.useMetricValues = false;
    EXPECT_EQ(Now("**GPS_SPEED**"), "88 mph");
    program.radio.isInSetMode = true;
    program.radio.freqText = "10 4";
    EXPECT_EQ(Now("**RADIOFREQUENCY**"), "10 4");
}

TEST_F(PlaceholdersTest, TheListsLabelNamesFolderOrPlaylist) {
    MediaPlayer& mediaplayer = bench.program->mediaplayer;
    mediaplayer.currentFolder = "/music/My Songs";
    EXPECT_EQ(Now("**MEDIALISTCONTENT**"), "My" NBSP "Songs");
    mediaplayer.currentFolder = "/";
    EXPECT_EQ(Now("**MEDIALISTCONTENT**"), "/");
    mediaplayer.currentFolder = "";
    EXPECT_EQ(Now("**MEDIALISTCONTENT**"), WithoutBreaks(bench.program->languageText("MEDIAPLAYER_FOLDERERROR")));
    mediaplayer.showingPlaylist = true;
    mediaplayer.currentPlaylistFile = "";
    EXPECT_EQ(Now("**MEDIALISTCONTENT**"), WithoutBreaks(bench.program->languageText("MEDIAPLAYER_NOPLAYLIST")));
    mediaplayer.currentPlaylistFile = "/lists/road trip.m3u";
    EXPECT_EQ(Now("**MEDIALISTCONTENT**"), "road" NBSP "trip.m3u");
}

TEST_F(PlaceholdersTest, AShortTitleRunsAroundAndItsTailIsFilledFromTheRepeat) {
    PlayFile("/x/song.mp3", "S\xC3\xB6ng");
    EXPECT_THAT(Round(9),
                testing::ElementsAre("S\xC3\xB6ng" NBSP "+++" NBSP "S", "\xC3\xB6ng" NBSP "+++" NBSP "S\xC3\xB6",
                                     "ng" NBSP "+++" NBSP "S\xC3\xB6n", "g" NBSP "+++" NBSP "S\xC3\xB6ng",
                                     NBSP "+++" NBSP "S\xC3\xB6ng" NBSP, "+++" NBSP "S\xC3\xB6ng" NBSP "+",
                                     "++" NBSP "S\xC3\xB6ng" NBSP "++", "+" NBSP "S\xC3\xB6ng" NBSP "+++",
                                     NBSP "S\xC3\xB6ng" NBSP "+++" NBSP));
}

TEST_F(PlaceholdersTest, ANewTitleStartsAtItsBeginning) {
    bench.program->mediaplayer.displayFilenames = true;
    bench.skin.extra["mainmenu"] = Tag("labels", LabelXml("**MEDIATITLE**"));
    bench.skin.WriteTo(bench.folder, "titles");
    bench.program->skinner.LoadSkin("titles");
    const Control& label = *bench.program->mainmenu.form.Find("albl", 1);
    PlayQueue& wmp = bench.program->mediaplayer.wmp;
    for (const std::string title : {"The first of the titles", "Another one", "And one more of them"}) {
        wmp.NewPlaylist();
        wmp.AppendItem("/x/" + title);
        wmp.Play();
        bench.Advance(Milliseconds{100});
        EXPECT_EQ(label.caption.get(), WithoutBreaks(title.substr(0, 10)));
        bench.Advance(Milliseconds{200});
        EXPECT_EQ(label.caption.get(), WithoutBreaks(title.substr(1, 10)));
        bench.Advance(Milliseconds{500});
    }
}

TEST_F(PlaceholdersTest, PositionOrWhatRemains) {
    PlayFile("/x/song.mp3", "song", 7300);
    PlayQueue& wmp = bench.program->mediaplayer.wmp;
    wmp.SetCurrentPosition(65);
    EXPECT_EQ(Now("**MEDIAPOSITION**"), wmp.CurrentPositionString() + "/" + wmp.CurrentMedia()->DurationString());
    bench.program->mediaplayer.dispRemain = true;
    for (const auto& [position, text] : std::vector<std::pair<double, std::string>>{
             {65, "-120:35"}, {7299.5, "-00:00"}, {7298.5, "-00:02"}, {7238.4, "-01:02"}}) {
        wmp.SetCurrentPosition(position);
        EXPECT_EQ(Now("**MEDIAPOSITION**"), text) << position;
    }
    wmp.SetCurrentPosition(7300);
    EXPECT_EQ(Now("**MEDIAPOSITION**"), wmp.CurrentMedia()->DurationString()) << "not -00:00";
    wmp.Stop();
    bench.program->mediaplayer.dispRemain = false;
    EXPECT_EQ(Now("**MEDIAPOSITION**"), wmp.CurrentMedia()->DurationString());
}

TEST_F(PlaceholdersTest, VolumesMuteAndFade) {
    Program& program = *bench.program;
    PlayQueue& wmp = program.mediaplayer.wmp;
    program.sysvolume.useWaveVolumeOnly = false;
    wmp.SetVolume(40);
    program.sysvolume.waveVolume = 70;
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "40%");
    EXPECT_EQ(Now("**WAVEVOLUME**"), "70%");
    program.playervolume.fadeInVolume = 60;
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "Fade");
    EXPECT_EQ(Now("**WAVEVOLUME**"), "70%");
    wmp.SetVolume(60);
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "60%") << "at its target";
    wmp.SetMute(true);
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "Mute");
    EXPECT_EQ(Now("**WAVEVOLUME**"), "70%");

    program.sysvolume.useWaveVolumeOnly = true;
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "Fade");
    program.playervolume.fadeInVolume = 0;
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "70%");
    program.mixerLines.SetWaveInMute(true);
    EXPECT_EQ(Now("**MEDIAVOLUME**"), "Mute");
    EXPECT_EQ(Now("**WAVEVOLUME**"), "Mute");
}
