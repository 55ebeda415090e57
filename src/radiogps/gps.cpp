#include "radiogps/gps.h"

#include "core/commanddispatcher.h"
#include "core/moduleform.h"
#include "core/numbers.h"
#include "core/program.h"
#include "platform/platform.h"
#include "radiogps/dash.h"
#include "system/clsvolume.h"
#include "system/devices.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zvr {
namespace {

constexpr Milliseconds patience{5000};  ///< with a receiver that says too little
constexpr std::string_view noGps = "!GPS";
constexpr double kilometers = 1.852;  ///< of a nautical mile
constexpr double miles = 1.15077945;
constexpr double sweep = 340;              ///< degrees that the needle turns at most
constexpr double sideOfNeedle = 1 / 74.0;  ///< its width, as a share of the dash

using Word = std::numeric_limits<std::int16_t>;

}  // namespace

Gps::Gps(Program& program) : tmrRefreshGpsData(program.platform.loop, [this] { Refresh(); }), program(program) {
    tmrRefreshGpsData.SetInterval(Milliseconds{100});
}

void Gps::Load() {
    LoadModuleForm(program, form);
    for (int i = 0; i < 2; ++i) {
        picSpeedo[static_cast<std::size_t>(i)] = &form.Add(ControlKind::picture, "picSpeedo", i);
    }
    picSpeedo[0]->visible = false;
    picNeedle = &form.Add(ControlKind::picture, "picNeedle");
    picNeedle->visible = false;
    form.onActivate = [this] {
        program.commanddispatcher.pushModuleHistory(form.name);
        // From the loop: a message in the middle of bringing a screen to the front would hold up whoever does that.
        program.platform.loop.Post(lifetime.Guard([this] { Activated(); }));
    };
}

int Gps::PortNumber() const {
    return static_cast<int>(std::clamp(RoundHalfEven(LeadingNumber(GPScomPort)), long{Word::min()}, long{Word::max()}));
}

void Gps::Activated() {
    if (form.loaded && (!program.platform.serial.IsOpen() || commPort != PortNumber())) {
        SetSpeed(0);
        PortOpen(false);
    }
}

void Gps::PortOpen(bool quiet) {
    const auto tell = [&](const std::string& text) {
        if (!quiet) {
            program.showMessage(text);
        }
    };
    if (LeadingNumber(GPScomPort) <= 0) {
        tell(program.languageText("GPS_PORTNOTCONFIGURED"));
        return;
    }
    commPort = PortNumber();
    const std::string device = PortPath(Profile::Load(DevicesFile(program.place.folder)), commPort);
    const std::string fault = program.platform.serial.Open(device, GPScomSettings);
    if (fault.empty()) {
        tmrRefreshGpsData.Start();
        return;
    }
    tmrRefreshGpsData.Stop();
    if (readingSince) {
        readingSince.reset();
        Gsatnum = noGps;
    }
    tell(program.languageText("GPS_PORTOPENFAIL") + " " + (device.empty() ? "COM" + std::to_string(commPort) : device) +
         ": " + fault);
}

void Gps::PortClose() {
    tmrRefreshGpsData.Stop();
    program.platform.serial.Close();
}

/// A receiver speaks once a second, for as long as its line needs. This waits for it over several of its own steps, not
/// inside of one: a wait in there would lie on top of every other wait of the program and hold that up for five
/// seconds.
void Gps::Refresh() {
    SerialPort& port = program.platform.serial;
    if (!readingSince) {
        if (!port.IsOpen()) {
            return;
        }
        readingSince = program.platform.loop.Monotonic();
    }
    receiver.buffer += port.Read();
    if (!receiver.BurstIsIn() && program.platform.loop.Monotonic() - *readingSince <= patience) {
        return;
    }
    readingSince.reset();
    if (receiver.HasEnough()) {
        receiver.ParseBuffer();
        ShowValues();
    } else {
        Gsatnum = noGps;
    }
}

void Gps::ShowValues() {
    const GPSctl::Rmc& rmc = receiver.rmc;
    Gsatnum = receiver.gga.satellites;
    Galtitude = receiver.gga.altitude;
    const bool somewhere = !(rmc.latitude + rmc.northOrSouth + rmc.longitude + rmc.eastOrWest).empty();
    Gposition = somewhere ? rmc.latitude + " " + rmc.northOrSouth + ", " + rmc.longitude + " " + rmc.eastOrWest : "";
    const long speed = RoundHalfEven(LeadingNumber(rmc.speed) * (useMetricValues ? kilometers : miles));
    Gspeed = std::to_string(speed);
    if (speed >= Word::min() && speed <= Word::max()) {
        SetSpeed(static_cast<int>(speed));
    }
}

void Gps::SetSpeed(int speed) {
    lastSpeed = speed;
    DrawDash();
    if (useSpeedBasedVolume && speed > 0) {
        FollowWithVolume(speed);
    }
}

void Gps::FollowWithVolume(int speed) {
    if (speedMin >= speedMax || volMin >= volMax) {
        return;
    }
    double percent = volMin;
    if (speed >= speedMax) {
        percent = volMax;
    } else if (speed > speedMin) {
        const int hundredfold = (speed - speedMin) * 100;
        if (hundredfold > Word::max()) {
            return;
        }
        percent += static_cast<double>(hundredfold) / (speedMax - speedMin) * (volMax - volMin) / 100;
    }
    program.mixerLines.SetMasterLevel(RoundHalfEven(static_cast<double>(RoundHalfEven(percent)) * (65535.0 / 100)));
    if (program.playervolume.fadeInVolume == 0) {
        program.sysvolume.ReadWaveVolume();  // on many sound cards both are one
    }
}

void Gps::FitDash() {
    const Control& face = *picSpeedo[0];
    picSpeedo[1]->Move(face.left, face.top, face.width, face.height);
    picSpeedo[1]->picture = face.picture;
    picSpeedo[1]->inlay = Inlay{};
    picNeedle->width = face.width.get();
    picNeedle->height = face.height.get();
}

void Gps::DrawDash() {
    if (!form.loaded) {
        return;
    }
    const double degrees = std::min(lastSpeed * speedoStepping + speedoOffset, speedoOffset + sweep);
    // The dash is taken to be square: its middle is half its width from the top as well.
    const int width = static_cast<int>(RoundHalfEven(picNeedle->width / twipsPerPixel));
    const int middle = width / 2;
    const Needle needle{
        {middle, middle}, double(speedoNeedleLength), std::max(width * sideOfNeedle, 1.0), speedoNeedleCenter, degrees};
    picSpeedo[1]->inlay =
        Inlay{picNeedle->picture, picNeedle->backColor, NeedleRuns(needle, {width, Pixels(picNeedle->height)})};
}

}  // namespace zvr
