#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The GPS screen with its dash.
class Gps {
public:
    explicit Gps(Program& program);

    Form form{"gps"};
    Control* picSpeedo = nullptr;  ///< the dash as it shows
    Control* picNeedle = nullptr;  ///< holds the needle's picture, never shown itself

    std::string GPScomPort;  ///< empty: none
    std::string GPScomSettings;
    bool useMetricValues = true;
    bool useSpeedBasedVolume = false;
    int speedMin = 30;
    int speedMax = 100;
    int volMin = 30;
    int volMax = 100;

    // What the receiver said last; empty before the first word.
    std::string Gsatnum;
    std::string Gspeed;
    std::string Gposition;
    std::string Galtitude;

    // From the skin.
    int speedoNeedleLength = 0;  ///< pixels
    int speedoNeedleCenter = 0;
    double speedoOffset = 0;    ///< degrees
    double speedoStepping = 0;  ///< degrees for one unit of speed

    void Load();

private:
    Program& program;
};

}  // namespace zvr
