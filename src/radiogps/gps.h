#pragma once

#include "platform/eventloop.h"
#include "platform/lifetime.h"
#include "radiogps/gpsctl.h"
#include "ui/form.h"

#include <array>
#include <optional>
#include <string>

namespace zvr {

class Program;

/// The GPS screen: what the receiver says, the dash, and the volume that follows the speed.
class Gps {
public:
    explicit Gps(Program& program);

    Form form{"gps"};
    std::array<Control*, 2> picSpeedo{};  ///< the dial as the skin draws it, hidden; the same with the needle over it
    Control* picNeedle = nullptr;         ///< holds the needle's picture, never shown itself
    Timer tmrRefreshGpsData;              ///< 100 ms, while the port is open

    std::string GPScomPort;  ///< empty: none
    std::string GPScomSettings;
    bool useMetricValues = true;
    bool useSpeedBasedVolume = false;
    int speedMin = 30;
    int speedMax = 100;
    int volMin = 30;
    int volMax = 100;

    // What the receiver said last; empty before the first word. Nothing marks them as old.
    std::string Gsatnum;    ///< "!GPS": it said too little
    std::string Gspeed;     ///< in the chosen unit
    std::string Gposition;  ///< degrees and minutes in the receiver's form
    std::string Galtitude;

    // From the skin.
    int speedoNeedleLength = 0;  ///< pixels
    int speedoNeedleCenter = 0;  ///< radius of the hub, pixels
    double speedoOffset = 0;     ///< degrees
    double speedoStepping = 0;   ///< degrees for one unit of speed

    void Load();
    /// The dash has another place or face; without a needle.
    void FitDash();
    /// Shows the needle at the last speed.
    void DrawDash();

    /// Opens the port of the settings; tells the driver why not, unless `quiet`. Waits for his answer then.
    void PortOpen(bool quiet);
    void PortClose();
    /// Turns the needle, and sets the volume if the driver has asked for that. In the chosen unit, 16 bits of it.
    void SetSpeed(int speed);

private:
    void Activated();
    void Refresh();  ///< one step of the timer
    void ShowValues();
    void FollowWithVolume(int speed);
    [[nodiscard]] int PortNumber() const;

    Program& program;
    GPSctl receiver;
    int commPort = 0;  ///< that was opened last, 0 for none
    /// When the port has begun to wait for what the receiver says in a second. None between two of them.
    std::optional<Milliseconds> readingSince;
    int lastSpeed = 0;
    Lifetime lifetime;
};

}  // namespace zvr
