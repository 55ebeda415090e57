#include "radiogps/radio.h"

#include "core/commanddispatcher.h"
#include "core/moduleform.h"
#include "core/numbers.h"
#include "core/program.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr Milliseconds longPress{2000};
constexpr std::string_view stationCommand = "radio.station.";
constexpr std::size_t wholeLength = 6;  ///< "104.50" needs no "set"

/// "1.04" is 104.
int DigitsOnly(const std::string& text) {
    int number = 0;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            number = number * 10 + (c - '0');
        }
    }
    return number;
}

}  // namespace

Radio::Radio(Program& program)
    : tmrStationSave(program.platform.loop, [this] { SaveStation(); }), program(program), radiator(program) {
    tmrStationSave.SetInterval(longPress);
}

void Radio::Load() {
    LoadModuleForm(program, form);
    form.onActivate = [this] {
        program.commanddispatcher.pushModuleHistory(form.name);
        program.platform.loop.Post(lifetime.Guard([this] { Activated(); }));
    };
}

void Radio::Activated() {
    if (form.loaded) {
        radiator.Wake(FrequencyCommand());
    }
}

void Radio::SetFreq(int frequency) {
    currentFreq = std::clamp(frequency, freqLowerBound, freqUpperBound);
    isInSetMode = false;
    radiator.RunRadiatorCommand(FrequencyCommand(), false);
}

void Radio::freqKey(int key) {
    if (!isInSetMode) {
        freqText.clear();
    }
    if (key == -1) {
        if (!freqText.empty()) {
            SetFreq(DigitsOnly(freqText));
        }
        return;
    }
    if (key < 0 || key > 9) {
        return;
    }
    isInSetMode = true;
    const int typed = DigitsOnly(freqText) * 10 + key;
    const std::string hundredths = std::to_string(100 + typed % 100);
    freqText = std::to_string(typed / 100) + "." + hundredths.substr(1);
    if (freqText.size() == wholeLength) {
        SetFreq(typed);
    }
}

void Radio::SwitchMute() {
    radioOn = !radioOn;
    radiator.RunRadiatorCommand(radioOn ? "unmute" : "mute", false);
}

void Radio::ButtonDown(std::string_view command) {
    const std::string name = text::Lower(command);
    if (!name.starts_with(stationCommand) || !form.loaded) {
        return;
    }
    const std::string number = name.substr(stationCommand.size());
    if (number.size() == 1 && number[0] >= '0' && number[0] <= '9') {
        stationToSave = number[0] - '0';
        tmrStationSave.Start();
    }
}

void Radio::SaveStation() {
    tmrStationSave.Stop();
    setRadioStation(stationToSave, currentFreq);
    program.showMessage(program.languageText("RADIO_STATIONSAVE"));
}

}  // namespace zvr
