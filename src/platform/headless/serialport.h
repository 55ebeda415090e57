#pragma once

#include "platform/serialport.h"

#include <map>

namespace zvr {

/// Lines that the test puts together, by device.
struct SerialPort::State {
    struct Line {
        std::string input;    ///< what the port has yet to read
        bool plugged = true;  ///< false: opening fails, and what is open closes once its input is read
    };
    std::map<std::string, Line> lines;

    std::string device;  ///< that is open, empty for none
    SerialSettings settings;
    int openings = 0;  ///< that worked

    /// What a device says. It goes into the void unless the port is open, as on a real line.
    void Say(const std::string& from, std::string_view bytes) {
        if (device == from) {
            lines[from].input += bytes;
        }
    }
};

}  // namespace zvr
