#pragma once

#include "platform/mixer.h"

#include <map>

namespace zvr {

/// A sound card that the test puts together. Starts with all six lines at their loudest.
struct Mixer::State {
    struct Line {
        LevelRange range{0, 65536};
        std::uint32_t volume = 65536;
        bool hasVolume = true;
        bool hasMute = true;
        bool muted = false;
    };

    bool card = true;  ///< false: Open fails
    unsigned openings = 0;
    bool failing = false;  ///< every read and write fails from now on
    std::map<MixerLine, Line> lines;
    std::uint32_t waveLevel = 0xFFFFFFFF;  ///< what a read gives; a test's write to it is a change from outside
    int waveWrites = 0;                    ///< calls of SetWaveLevel

    State();
    void Reconnect();  ///< a card comes, or the sound server is back
};

}  // namespace zvr
