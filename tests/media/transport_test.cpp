#include "playerbench.h"
#include "system/clsvolume.h"
#include "system/sysvolume.h"

namespace zvr {
namespace {

class Transport : public PlayerBench {
protected:
    void OpenThree(const std::string& player = {}, bool waveVolume = false) {
        Music({"a.mp3", "b.mp3", "c.mp3", "Sub/x.mp3"});
        Open(player, waveVolume ? "USEWAVEVOLUMEONLY=1" : "USEWAVEVOLUMEONLY=0");
    }
};

TEST_F(Transport, AFilePlaysWithAllFilesOfItsFolderInScanOrder) {
    drives.push_back({MusicFolder() + "/", DriveType::removable});
    OpenThree();
    Player().picPosSlider->left = 500;
    Choose("b.mp3");
    std::vector<std::string> inScanOrder;
    files::Enumerate(MusicFolder(), [&](const files::Found& found) {
        if ((found.attributes & files::attributeDirectory) == 0) {
            inScanOrder.push_back(InMusic(std::string(found.name)));
        }
        return true;
    });
    EXPECT_EQ(Queue(), inScanOrder) << "neither folders nor drives, and not in the order of display";
    EXPECT_EQ(Playing(), InMusic("b.mp3"));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_EQ(media.window, 1U) << "the video goes to the player's area";
    EXPECT_LT(Player().picPosSlider->left.get(), 500);
}

TEST_F(Transport, APlaylistFileInAFolderPlaysByTheRulesOfItsFormat) {
    Music({"a.mp3", "b.mp3"});
    bench.folder.Write("music/mix.M3U", "#EXTM3U\n#EXTINF:1,x\nb.mp3\na.mp3\n");
    Open("FILEEXTENSIONSAUDIO=mp3;m3u");
    Choose("mix.M3U");
    EXPECT_THAT(Queue(), ElementsAre(InMusic("b.mp3"), InMusic("a.mp3")));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_EQ(Player().playstate, 0) << "the wish to play is as the caller left it";
}

TEST_F(Transport, ToggleAndStop) {
    OpenThree();
    Choose("a.mp3");
    Do("mediaplayer.playpausetoggle");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused);
    EXPECT_EQ(Player().playstate, 0);
    Do("mediaplayer.playpausetoggle");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    Do("mediaplayer.ffwd");
    EXPECT_EQ(Player().currentSkipMode, 1);
    Do("mediaplayer.playpausetoggle");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing) << "a toggle during a skip plays";
    EXPECT_EQ(Player().currentSkipMode, 0);
    for (const char* end : {"mediaplayer.switchlistmode", "mediaplayer.pause", "mediaplayer.stop"}) {
        Do("mediaplayer.rwnd");
        Do(end);
        EXPECT_EQ(Player().currentSkipMode, 0) << end;
    }
    EXPECT_EQ(Wmp().CurrentState(), PlayState::stopped);
    EXPECT_EQ(Player().playstate, 0);
}

TEST_F(Transport, NextEndsASkipAndKeepsTheMutePreviousLeavesBoth) {
    OpenThree();
    Choose("a.mp3");
    Wmp().SetMute(true);
    Player().currentSkipMode = 1;
    for (const auto& [command, skipMode] : {std::pair{"mediaplayer.prev", 1}, {"mediaplayer.next", 0}}) {
        Do(command);
        EXPECT_EQ(Player().currentSkipMode, skipMode);
        EXPECT_TRUE(Wmp().Mute());
    }
}

TEST_F(Transport, MuteOfThePlayerFadesInWhenItEnds) {
    OpenThree();
    Choose("a.mp3");
    Wmp().SetVolume(50);
    Do("mediaplayer.volumemute");
    EXPECT_TRUE(Wmp().Mute());
    EXPECT_EQ(Volume().fadeInVolume, 50);
    Do("mediaplayer.volumemute");
    EXPECT_FALSE(Wmp().Mute());
    EXPECT_EQ(Wmp().Volume(), 0);
    EXPECT_FALSE(bench.program->mixerLines.WaveInMute());
    bench.program->sysvolume.useWaveVolumeOnly = true;
    Do("mediaplayer.volumemute");
    EXPECT_TRUE(bench.program->mixerLines.WaveInMute());
}

class Sliders : public Transport {
protected:
    /// On the track, that many pixels from its left edge.
    static Point At(const Control& track, int x) {
        const Rect place = track.Place();
        const Rect form = track.form.Place();
        return {form.x + place.x + x, form.y + place.y + place.height / 2};
    }
};

TEST_F(Sliders, APressPutsTheKnobsMiddleThereAndNeverSeeksToTheVeryEnd) {
    OpenThree();
    // Track of 240 pixels, knob of 40: its middle goes from 20 to 220.
    for (const auto& [x, percent] : {std::pair{0, 0}, {20, 0}, {120, 50}, {220, 100}, {239, 100}, {71, 26}}) {
        Volume().fadeInVolume = 70;
        bench.Tap(At(*Player().picVolume, x));
        EXPECT_EQ(Wmp().Volume(), percent) << x;
        EXPECT_EQ(Volume().fadeInVolume, 0);
    }
    bench.Tap(At(*Player().picPosition, 200));  // nothing is loaded yet
    media.defaultDuration = 200;
    Choose("a.mp3");
    Do("mediaplayer.pause");
    for (const auto& [x, seconds] : {std::pair{200, 100}, {399, 198}, {3, 0}}) {
        bench.Tap(At(*Player().picPosition, x));
        EXPECT_DOUBLE_EQ(Wmp().CurrentPosition(), seconds) << x;
    }
}

TEST_F(Sliders, AKnobFollowsTheFingerUntilItLifts) {
    OpenThree();
    media.defaultDuration = 200;
    Choose("a.mp3");
    Do("mediaplayer.pause");
    const auto middle = [](const Control& knob, const Control& track) {
        return knob.Place().x + knob.Place().width / 2 - track.Place().x;
    };
    const Control& position = *Player().picPosition;
    bench.Down(At(position, 100));
    const double pressed = Wmp().CurrentPosition();
    bench.Move(At(position, 200));
    bench.Advance(Milliseconds{300});
    EXPECT_EQ(middle(*Player().picPosSlider, position), 200) << "no tick takes it away";
    EXPECT_DOUBLE_EQ(Wmp().CurrentPosition(), pressed) << "it is heard when it is let go";
    bench.Up(At(position, 200));
    EXPECT_DOUBLE_EQ(Wmp().CurrentPosition(), 100);
    const Control& volume = *Player().picVolume;
    bench.Down(At(volume, 20));
    Volume().fadeInVolume = 70;
    bench.Move(At(volume, 122));
    bench.Advance(Milliseconds{200});
    EXPECT_EQ(Volume().fadeInVolume, 0);
    EXPECT_EQ(middle(*Player().picVolSlider, volume), 122);
    EXPECT_EQ(Wmp().Volume(), 51) << "and is heard at once";
    bench.Move(At(volume, 1000));
    EXPECT_EQ(Wmp().Volume(), 100);
    bench.Up(At(volume, 1000));
    Wmp().SetVolume(30);
    bench.Advance(Milliseconds{200});
    EXPECT_LT(middle(*Player().picVolSlider, volume), 100) << "the ticks have it again";

    bench.Down(At(position, 100));
    bench.Move(At(position, 300));
    Wmp().Next();
    bench.Advance(Milliseconds{200});
    const double begun = Wmp().CurrentPosition();
    bench.Up(At(position, 300));
    EXPECT_DOUBLE_EQ(Wmp().CurrentPosition(), begun) << "the place was in the other item";
}

}  // namespace
}  // namespace zvr
