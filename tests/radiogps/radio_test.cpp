#include "radiogps/radio.h"

#include "platform/headless/processes.h"
#include "support/matchers.h"

#include <utility>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;
using Words = std::vector<std::string>;

/// A radio program whose tool needs a while for each thing that it is told.
class RadioTest : public testing::Test {
protected:
    RadioTest() {
        bench.settings = "[general]\nSHOWWARNING=0\n[radio]\nRADIATORFOLDER=/a radio\nTUNINGSTEP=10\n";
        bench.skin.buttons["radio"] = {{0, 0, "Radio.Station.3"}, {200, 0, "radio.tune.up"}};
        bench.skin.labels["radio"] = {"**RADIOFREQUENCY**"};
        bench.AnswerMessages();
        bench.Start();
        EndToolsEvery(20ms);
    }
    void EndToolsEvery(Milliseconds time) {
        tools.SetInterval(time);
        tools.Start();
    }
    void Do(const std::string& command, Milliseconds time = 100ms) {
        bench.program->dispatchCommand(command);
        bench.Advance(time);
    }
    void Type(const std::string& digits) {
        for (const char digit : digits) {
            Do(std::string("radio.frequency.") + digit);
        }
    }
    /// What was started since the last look; of the tool only its words.
    Words Told() {
        Words words = std::exchange(neighbours.started, {});
        for (std::string& line : words) {
            line.erase(0, line.starts_with(tool) ? tool.size() : 0);
        }
        return words;
    }
    void EndTools() {
        mostTools = std::max(mostTools, neighbours.running.size());
        const auto running = neighbours.running;
        for (const auto& [id, program] : running) {
            if (program.commandLine.starts_with(tool)) {
                neighbours.End(id);
            }
        }
    }
    Radio& radio() { return bench.program->radio; }
    std::string Shown() { return bench.LabelText(radio().form, "**RADIOFREQUENCY**"); }
    Words Messages() { return std::exchange(bench.messages, {}); }

    const std::string program = "\"/a radio/radiator\" -tray";
    const std::string tool = "\"/a radio/Add-ons/Command line/rc\" ";
    Bench bench;
    Processes::State& neighbours = *bench.platform.processes.state;
    Timer tools{bench.platform.loop, [this] { EndTools(); }};
    std::size_t mostTools = 0;
};

TEST_F(RadioTest, TheKeypadShiftsInFromTheRight) {
    neighbours.others["radiator"] = 7;
    for (const std::string shown : {"0.01", "0.10", "1.04", "10.45"}) {
        Type({shown.back()});
        EXPECT_EQ(Shown(), shown);
    }
    EXPECT_THAT(Told(), IsEmpty());
    Type("0");
    EXPECT_THAT(Told(), ElementsAre("fr10450")) << "six characters need no set";
    EXPECT_EQ(Shown(), "104.50");
    Do("radio.frequency.set");
    EXPECT_THAT(Told(), IsEmpty()) << "nothing new was typed";
    Type("875");
    Do("mainmenu.show");
    Do("radio.frequency.set");
    EXPECT_EQ(radio().currentFreq, 8700);
    Type("8790");
    Do("radio.frequency.set");
    EXPECT_EQ(Shown(), "87.90");
    for (const char* unknown : {"radio.frequency.11", "radio.frequency.", "radio.station.12"}) {
        Do(unknown);
    }
    EXPECT_EQ(Messages().size(), 3U);
    Do("radio.station.x");
    EXPECT_EQ(radio().currentFreq, 8700) << "the memory that nothing fills";
}

TEST_F(RadioTest, StartsTheRadioInSilenceBeforeItTellsAnything) {
    Do("radio.show");
    EXPECT_THAT(Told(), ElementsAre(program));
    Do("radio.tune.up", 150ms);
    EXPECT_THAT(Told(), ElementsAre("fr8710", "mute")) << "it runs, so a touch gets through";
    bench.Advance(3650ms);
    EXPECT_EQ(Told(), Words(18, "mute"));
    bench.Advance(5000ms);
    EXPECT_THAT(Told(), ElementsAre("mute", "fr8710")) << "by now it surely listens";
    neighbours.running.clear();
    Do("radio.mute", 4900ms);
    EXPECT_EQ(Told().size(), 21U);
    bench.Advance(200ms);
    EXPECT_THAT(Told(), ElementsAre("unmute")) << "it has waited for the start that it caused";
    tools.Stop();
    Do("radio.mute", 500ms);
    bench.program->UnloadRoot(true);
    bench.program.reset();
    EndTools();  // nobody waits for them any more
}

TEST_F(RadioTest, TellsWhatItCantStart) {
    const std::string noStart = "The radio program could not be started.";
    neighbours.missing = {{program, true}, {tool + "fr8720", true}};
    Do("radio.show");
    EXPECT_THAT(Messages(), IsEmpty()) << "whoever only looks is left alone";
    Do("radio.tune.up");
    EXPECT_THAT(Messages(), ElementsAre(noStart));
    neighbours.others["radiator"] = 7;
    Do("radio.tune.up");
    EXPECT_THAT(Messages(), ElementsAre(noStart));
    radio().radiatorFolder.clear();
    Told();
    Do("radio.mute");
    neighbours.others.clear();
    Do("radio.show");
    Do("radio.mute");
    const std::string noFolder = "The folder of the radio program is not set. Please choose it in the settings.";
    EXPECT_THAT(Messages(), ElementsAre(noFolder, noFolder));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(RadioTest, AHeldKeyPilesUpNoTools) {
    neighbours.others["radiator"] = 7;
    EndToolsEvery(300ms);
    for (int i = 0; i < 100; ++i) {
        Do("radio.tune.up", 20ms);
    }
    Do("radio.mute", 1000ms);
    const auto told = Told();
    EXPECT_EQ(mostTools, 1U);
    EXPECT_LT(told.size(), 12U);
    EXPECT_EQ(told.front(), "fr8710");
    EXPECT_THAT(Words(told.end() - 2, told.end()), ElementsAre("fr9700", "unmute"));
    tools.Stop();
    Do("radio.tune.up", 1000ms);
    Do("radio.tune.up", 5000ms);
    EXPECT_THAT(Told(), ElementsAre("fr9710"));
    bench.Advance(5000ms);
    EXPECT_THAT(Told(), ElementsAre("fr9720")) << "a tool that hangs is given up";
}

TEST_F(RadioTest, TwoSecondsOnAStationStoreIt) {
    Do("radio.show");
    const auto hold = [this](const std::string& command, Milliseconds time) {
        radio().SetFreq(10450);
        bench.Press(command);
        bench.Advance(time);
        bench.Release();
        bench.Advance(3000ms);
        return Messages();
    };
    EXPECT_THAT(hold("Radio.Station.3", 1900ms), IsEmpty());
    EXPECT_EQ(radio().currentFreq, 8700) << "too short: it was recalled";
    EXPECT_THAT(hold("radio.tune.up", 3000ms), IsEmpty());
    EXPECT_THAT(hold("Radio.Station.3", 2500ms), ElementsAre("The station was saved."));
    radio().SetFreq(9000);
    bench.Tap("Radio.Station.3");
    EXPECT_EQ(radio().currentFreq, 10450);
    bench.program->UnloadRoot(true);
    EXPECT_THAT(bench.folder.ReadFile("zvr.ini"), HasSubstr("STATION_3=10450"));
}

}  // namespace
}  // namespace zvr
