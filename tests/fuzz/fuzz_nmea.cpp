#include "target.h"

#include "platform/headless/serialport.h"
#include "radiogps/gps.h"
#include "support/minimal.h"

using namespace zvr;

namespace {

std::unique_ptr<Bench> BenchWithReceiver() {
    auto bench = RunningBench();
    bench->platform.serial.state->lines["/dev/ttyUSB0"] = {};
    bench->program->gps.GPScomPort = "5";
    bench->program->gps.useSpeedBasedVolume = true;
    bench->program->gps.PortOpen(true);
    return bench;
}

}  // namespace

// Any bytes may come from a receiver, in any pieces. What shows are fields of theirs, the port stays open, and what was
// not understood is thrown away.
void zvr::Try(std::string_view input) {
    static const auto bench = BenchWithReceiver();
    const Gps& gps = bench->program->gps;
    SerialPort::State& port = *bench->platform.serial.state;
    const std::size_t piece = 1 + FirstByte(input) * std::size_t{4};
    for (std::size_t at = 0; at < input.size(); at += piece) {
        port.Say("/dev/ttyUSB0", input.substr(at, piece));
        bench->Advance(Milliseconds{100});
    }
    port.Say("/dev/ttyUSB0", std::string(GPSctl::enough, 'x'));
    bench->Advance(Milliseconds{300});
    Require(bench->platform.serial.IsOpen() && !bench->loop.quitting);
    Require(gps.Gspeed.find_first_not_of("-0123456789") == std::string::npos && gps.Gsatnum != "!GPS");
    Require((gps.Gsatnum + gps.Galtitude).find(',') == std::string::npos);
}
