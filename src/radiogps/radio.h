#pragma once

#include "platform/eventloop.h"
#include "radiogps/radiator.h"
#include "ui/form.h"

#include <array>
#include <string>
#include <string_view>

namespace zvr {

class Program;

/// The FM radio screen. Frequencies are whole hundredths of a megahertz.
class Radio {
public:
    explicit Radio(Program& program);

    Form form{"radio"};
    Timer tmrStationSave;  ///< 2000 ms, while the finger is down on a station

    std::string radiatorFolder;  ///< of the radio program; empty: not set
    int freqLowerBound = 8700;
    int freqUpperBound = 10800;
    int radioTuningStep = 100;
    int radioFineTuningStep = 10;
    int currentFreq = 8700;
    bool isInSetMode = false;  ///< a frequency is being typed
    std::string freqText;      ///< what has been typed: "10.45"

    /// `station` from 0 to 9; 0 is a memory that no setting fills.
    [[nodiscard]] int getRadioStation(int station) const { return stations[static_cast<std::size_t>(station)]; }
    void setRadioStation(int station, int frequency) { stations[static_cast<std::size_t>(station)] = frequency; }

    void Load();

    void SetFreq(int frequency);  ///< the nearest one within the bounds
    void freqKey(int key);        ///< a digit, or -1 for "set"; any other does nothing
    void SwitchMute();

    // What a skin button's press and release mean here: two seconds on a station store it.
    void ButtonDown(std::string_view command);
    void ButtonsReleased() { tmrStationSave.Stop(); }

private:
    void Activated();
    void SaveStation();
    [[nodiscard]] std::string FrequencyCommand() const { return "fr" + std::to_string(currentFreq); }

    Program& program;
    Radiator radiator;
    std::array<int, 10> stations{};
    int stationToSave = 0;
    bool radioOn = false;  ///< as far as we have told it; it comes up muted
    Lifetime lifetime;
};

}  // namespace zvr
