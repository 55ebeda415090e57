#include "media/dvdplayer.h"
#include "media/playerbench.h"
#include "platform/common/discimage.h"
#include "platform/headless/discs.h"
#include "platform/platform.h"
#include "system/devices.h"

namespace zvr {
namespace {

class AudioCd : public PlayerBench {
protected:
    void SetUp() override {
        discs.devices = {"/dev/sr0", "/dev/sr1"};
        discs.inDevice["/dev/sr1"] = {DiscKind::audio, {{"/dev/sr1", 1, 200}, {"/dev/sr1", 3, 90}}};
    }
    void Begin(const std::string& letter) {
        Open("\n[dvdplayer]\nDRIVELETTER=" + letter + "\n");
        Do("mainmenu.show");
    }
    void Load(Milliseconds wait = Milliseconds{3000}) {
        Do("mediaplayer.loadaudiocd");
        bench.Advance(wait);
    }

    Discs::State& discs = *bench.platform.discs.state;
};

TEST_F(AudioCd, IsNothingWithoutALetterADriveOrADiscAndAFilmIsTheDvdScreens) {
    Begin("");
    for (const char* letter : {"", "d:", "f:", "a:", "z:"}) {
        bench.program->dvdplayer.driveLetter = letter;
        Load();
        EXPECT_THAT(Queue(), IsEmpty()) << letter;
        EXPECT_EQ(bench.Front(), "mainmenu") << letter;
        EXPECT_THAT(bench.messages, IsEmpty()) << letter;
    }
    bench.folder.Write("film/Video_TS/VIDEO_TS.IFO", "");
    bench.folder.Write("devices.ini", "[Drives]\nZ=" + bench.folder.path + "/film\n");
    Load();
    EXPECT_EQ(bench.Front(), "dvdplayer") << "a film";
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::running);
    EXPECT_THAT(Queue(), IsEmpty());
}

TEST_F(AudioCd, EndsItsWaitWithAnyOtherActAndCanBeAskedForAgain) {
    Music({"a.mp3", "b.mp3"});
    Begin("e:");
    Do("mediaplayer.show");
    Choose("a.mp3");
    for (const char* act : {"mediaplayer.stop", "mediaplayer.play", "mediaplayer.playpausetoggle", "mediaplayer.next",
                            "mediaplayer.prev", "mediaplayer.listselect"}) {
        Load(Milliseconds{100});
        Do(act);
        bench.Advance(Milliseconds{3000});
        EXPECT_EQ(Queue().size(), 2U) << act;
        EXPECT_EQ(Queue().front(), InMusic("a.mp3")) << act;
    }
    Load(Milliseconds{100});
    Do("mediaplayer.stop");
    Load(Milliseconds{3000});
    EXPECT_THAT(Queue(), ElementsAre("cdda:///dev/sr1#1", "cdda:///dev/sr1#3"))
        << "the drive was still spinning up for the press before";
}

TEST(DiscImage, TellsTheLengthOfEachTrackTheLastOneByItsOwnSize) {
    const TemporaryFolder folder;
    const std::string sheet = folder.Write("cd.cue",
                                           "FILE cd.bin BINARY\n TRACK 01 AUDIO\n  INDEX 01 00:00:00\n"
                                           " TRACK 02 AUDIO\n  INDEX 01 04:00:15\n");
    std::filesystem::resize_file(folder.Write("cd.bin", ""), (240 + 210) * sectorsASecond * soundSectorSize);
    const Disc disc = DiscOfPath(sheet);
    ASSERT_EQ(disc.tracks.size(), 2U);
    EXPECT_DOUBLE_EQ(disc.tracks[0].seconds, 240.2);
    EXPECT_DOUBLE_EQ(disc.tracks[1].seconds, 209.8);
}

TEST(Devices, StandBehindLettersAndNumbersOfPorts) {
    const Profile none = Profile::Parse("");
    const Profile some = Profile::Parse(
        "[drives]\nd=/dev/cd\ne=relative\nf=\n[Ports]\n1=/dev/serial/by-id/receiver\n2=ttyS7\n40=/dev/ttyAMA0\n");
    const std::vector<std::string> drives{"/dev/sr0", "/dev/sr1"};
    EXPECT_EQ(DiscPath(none, "d:", drives), "/dev/sr0");
    EXPECT_EQ(DiscPath(none, "c:", drives), "");
    EXPECT_EQ(DiscPath(some, "d:", drives), "/dev/cd");
    EXPECT_EQ(DiscPath(some, "e:", drives), "/dev/sr1");
    EXPECT_EQ(DiscPath(some, "f:", drives), "");
    EXPECT_EQ(PortPath(some, 1), "/dev/serial/by-id/receiver");
    EXPECT_EQ(PortPath(none, 1), "/dev/ttyS0");
    EXPECT_EQ(PortPath(some, 2), "/dev/ttyS1");
    EXPECT_EQ(PortPath(some, 5), "/dev/ttyUSB0");
    EXPECT_EQ(PortPath(some, 12), "/dev/ttyACM3");
    EXPECT_EQ(PortPath(some, 40), "/dev/ttyAMA0");
    for (const int none : {0, -1, 13, 41}) {
        EXPECT_EQ(PortPath(some, none), "") << none;
    }
}

}  // namespace
}  // namespace zvr
