#pragma once

#include "ui/form.h"

#include <array>
#include <string>

namespace zvr {

class Program;

/// The FM radio screen. Frequencies are whole hundredths of a megahertz.
class Radio {
public:
    explicit Radio(Program& program);

    Form form{"radio"};

    std::string radiatorFolder;
    int freqLowerBound = 8700;
    int freqUpperBound = 10800;
    int radioTuningStep = 100;
    int radioFineTuningStep = 10;
    int currentFreq = 8700;
    bool isInSetMode = false;  ///< a frequency is being typed
    std::string freqText;      ///< what has been typed

    /// `station` from 0 to 9; 0 is a memory that no setting fills.
    [[nodiscard]] int getRadioStation(int station) const { return stations[static_cast<std::size_t>(station)]; }
    void setRadioStation(int station, int frequency) { stations[static_cast<std::size_t>(station)] = frequency; }

    void Load();

private:
    Program& program;
    std::array<int, 10> stations{};
};

}  // namespace zvr
