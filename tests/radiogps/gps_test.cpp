#include "radiogps/gps.h"

#include "platform/headless/mixer.h"
#include "platform/headless/serialport.h"
#include "radiogps/dash.h"
#include "support/matchers.h"
#include "system/sysvolume.h"

#include <cmath>
#include <cstdlib>
#include <map>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

constexpr const char* device = "/dev/ttyUSB0";

class GpsTest : public testing::Test {
protected:
    GpsTest() {
        bench.settings = "[general]\nSHOWWARNING=0\n[gps]\nCOMPORT=5\nUSESPEEDBASEDVOLUME=1\n";
        port.lines[device] = {};
        bench.AnswerMessages();
    }
    static std::string Rmc(const std::string& knots, const std::string& status = "A") {
        return "$GPRMC,123519," + status + ",4807.038,N,01131.000,E," + knots + ",084.4,230394,003.1,W*00\r\n";
    }
    /// All that a receiver says in a second, of that length.
    static std::string Burst(const std::string& knots, std::size_t length = 600, const std::string& satellites = "08") {
        const std::string gga = "$GPGGA,123519,4807.038,N,01131.000,E,1," + satellites + ",0.9,545.4,M,46.9,M,,*47\r\n";
        const std::string end = "$GPGSA,A,3,,,,,,,,,,,,,,,*1E\r\n";
        const std::string said = gga + Rmc(knots);
        return said + std::string(length - said.size() - end.size(), 'x') + end;
    }
    void Say(const std::string& bytes, Milliseconds time = 200ms) {
        port.Say(device, bytes);
        bench.Advance(time);
    }
    void Visit() {
        bench.program->dispatchCommand("mainmenu.show");
        bench.program->dispatchCommand("gps.show");
        bench.Advance(100ms);
    }
    Gps& gps() { return bench.program->gps; }

    Bench bench;
    SerialPort::State& port = *bench.platform.serial.state;
};

TEST(Nmea, IsCutAndSummedAsReceiversWriteIt) {
    EXPECT_EQ(GPSctl::Field("a,b,,d", 4, ","), "d");
    EXPECT_EQ(GPSctl::Field("a--b", 2, "--"), "b");
    for (const auto nothing : {GPSctl::Field("a,b", 3, ","), GPSctl::Field("a,b", 0, ","), GPSctl::Field("ab", 1, ""),
                               GPSctl::Between("$A,1\r", "$A", "\r\n"), GPSctl::Between("\r\n$A", "$A", "\r\n")}) {
        EXPECT_EQ(nothing, "");
    }
    EXPECT_EQ(GPSctl::Between("\r\nx$A,1\r\n$A,2\r\n", "$A", "\r\n"), "$A,1");
    GPSctl gps;
    EXPECT_TRUE(gps.ParseRMC("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A"));
    EXPECT_EQ(gps.rmc.name, "GPRMC");
    EXPECT_EQ(gps.rmc.checksum, "6A");
    EXPECT_FALSE(gps.ParseRMC("$GPRMC,123519,A,4807.038,N,01131.000,E,922.4,084.4,230394,003.1,W*6A"));
    EXPECT_EQ(gps.rmc.speed, "922.4") << "counts all the same";
    std::string sentence = "$AB*03";
    EXPECT_EQ(GPSctl::NmeaChecksum(sentence), "3") << "so a sum below 16 never fits";
    EXPECT_EQ(sentence, "AB*03");
}

TEST_F(GpsTest, ShowsWhatABurstSaysWhateverItIsWorth) {
    bench.Start();
    EXPECT_EQ(port.openings, 1) << "from the start on, whichever screen shows";
    Say(Burst("10.0"));
    EXPECT_EQ(gps().Gspeed, "19");
    EXPECT_EQ(gps().Gposition, "4807.038 N, 01131.000 E");
    EXPECT_EQ(gps().Gsatnum, "08");
    EXPECT_EQ(gps().Galtitude, "545.4");
    gps().useMetricValues = false;
    Say(Rmc("10.0", "V") + Rmc("99") + std::string(600, 'x'));
    EXPECT_EQ(gps().Gspeed, "12") << "the first sentence of a kind counts, without a fix too";
    EXPECT_EQ(gps().Gsatnum, "") << "and one that isn't there empties its values";
    Say(std::string(600, 'x'));
    EXPECT_EQ(gps().Gspeed + gps().Gposition, "0");
    gps().useMetricValues = true;
    const std::string burst = Burst("2.5");
    Say(burst.substr(0, burst.find("GPRMC") + 3), 1000ms);
    Say(burst.substr(burst.find("GPRMC") + 3));
    EXPECT_EQ(gps().Gspeed, "5") << "however the bytes are cut";
}

TEST_F(GpsTest, WaitsFiveSecondsForABurstAndKeepsWhatItKnows) {
    bench.Start();
    Say(Burst("10.0"));
    Say(std::string(598, 'x'), 5000ms);
    EXPECT_EQ(gps().Gsatnum, "08");
    bench.Advance(300ms);
    EXPECT_EQ(gps().Gsatnum, "!GPS");
    EXPECT_EQ(gps().Gspeed, "19");
    EXPECT_EQ(gps().Gposition, "4807.038 N, 01131.000 E");
    Say(Burst("20.0"), 300ms);
    EXPECT_EQ(gps().Gspeed, "37");
    Say(Burst("30.0", 300), 300ms);
    EXPECT_EQ(gps().Gsatnum, "!GPS") << "its end has come and it is short";
    Say(Burst("40.0", 300), 300ms);
    EXPECT_EQ(gps().Gspeed, "56") << "both together are long enough, and the first counts";
}

TEST_F(GpsTest, TellsOfItsPortWhenItsScreenIsVisited) {
    bench.settings = "[general]\nSHOWWARNING=0\n[gps]\nCOMPORT=0\n";
    bench.Start();
    EXPECT_THAT(bench.messages, IsEmpty());
    const auto told = [this] {
        Visit();
        return std::exchange(bench.messages, {});
    };
    const std::string notSet = "No port is set for the GPS receiver. Please choose one in the settings.";
    const std::string fault = "The port of the GPS receiver could not be opened: ";
    EXPECT_THAT(told(), ElementsAre(notSet));
    EXPECT_THAT(told(), ElementsAre(notSet));
    gps().GPScomPort = "13";
    EXPECT_THAT(told(), ElementsAre(StartsWith(fault + "COM13: ")));
    gps().GPScomPort = "5";
    EXPECT_THAT(told(), IsEmpty());
    Say(Burst("10.0"));
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(port.openings, 1) << "it is open already";
    gps().GPScomPort = "6";
    EXPECT_THAT(told(), ElementsAre(fault + "/dev/ttyUSB1: No such file or directory"));
    gps().GPScomPort = "5";
    EXPECT_THAT(told(), IsEmpty());
    port.lines[device].plugged = false;
    bench.Advance(6000ms);
    EXPECT_EQ(gps().Gsatnum, "!GPS");
    EXPECT_EQ(gps().Gspeed, "19");
    EXPECT_THAT(told(), ElementsAre(fault + device + ": No such file or directory"));
    port.lines[device].plugged = true;
    EXPECT_THAT(told(), IsEmpty());
    Say(Burst("20.0"));
    EXPECT_EQ(gps().Gspeed, "37");
    bench.program->UnloadRoot(true);
    EXPECT_FALSE(bench.platform.serial.IsOpen());
}

TEST_F(GpsTest, TheVolumeFollowsTheSpeed) {
    bench.Start();
    const auto percentsAt = [this](const std::vector<int>& speeds) {
        std::vector<long> percents;
        for (const int speed : speeds) {
            gps().SetSpeed(speed);
            percents.push_back(std::lround(bench.platform.mixer.state->lines[MixerLine::master].volume / 655.36));
        }
        return percents;
    };
    EXPECT_THAT(percentsAt({0, 1, 30, 120, 65, 0}), ElementsAre(100, 30, 30, 100, 65, 65));
    EXPECT_EQ(bench.platform.mixer.state->lines[MixerLine::master].volume, 42599U) << "42598 of 65535, of 65536 here";
    gps().speedMax = 999;
    EXPECT_THAT(percentsAt({357, 358, 998, 999}), ElementsAre(54, 54, 54, 100)) << "as far as 16 bits reckon";
    gps().speedMax = gps().speedMin;
    EXPECT_THAT(percentsAt({20}), ElementsAre(100));
    gps().speedMax = 100;
    gps().useSpeedBasedVolume = false;
    EXPECT_THAT(percentsAt({20}), ElementsAre(100));
}

TEST_F(GpsTest, TheNeedleStaysWithin340Degrees) {
    bench.Start();
    gps().speedoOffset = 135;
    gps().speedoStepping = 2;
    gps().speedoNeedleLength = 90;
    gps().speedoNeedleCenter = 10;
    for (const auto& [speed, degrees] :
         std::map<int, double>{{0, 135}, {100, 335}, {170, 475}, {200, 475}, {-3, 129}}) {
        gps().SetSpeed(speed);
        EXPECT_EQ(gps().picSpeedo[1]->inlay->shape, NeedleRuns({{150, 150}, 90, 300 / 74.0, 10, degrees}, {300, 200}))
            << speed;
    }
}

TEST(Dash, TheNeedleCoversWhatLiesNearEnough) {
    for (int degrees = 0; degrees < 360; degrees += 30) {
        std::map<std::pair<int, int>, int> covered;
        for (const Rect& run : NeedleRuns({{60, 60}, 55, 5, 12, double(degrees)}, {120, 110})) {
            for (int x = run.x; x < run.x + run.width; ++x) {
                ++covered[{x, run.y}];
            }
        }
        const double across = std::cos(degrees * M_PI / 180);
        const double down = std::sin(degrees * M_PI / 180);
        for (int i = 0; i < 120 * 110; ++i) {
            const double x = i % 120 - 60;
            const double y = i / 120 - 60;
            const double along = std::clamp(x * across + y * down, 0.0, 55.0);
            const bool near = std::hypot(x, y) < 12.0001 || std::hypot(x - along * across, y - along * down) < 2.5001;
            ASSERT_EQ((covered[{i % 120, i / 120}]), near) << degrees << " degrees at " << x << ", " << y;
        }
    }
}

}  // namespace
}  // namespace zvr
