#include "platform/headless/serialport.h"

#include "platform/log.h"

namespace zvr {

SerialPort::SerialPort() : state(std::make_unique<State>()) {}
SerialPort::~SerialPort() = default;

SerialPort::ErrorText SerialPort::Open(const std::string& device, std::string_view settings) {
    Close();
    const auto parsed = ParseSerialSettings(settings);
    const auto line = state->lines.find(device);
    ErrorText fault;
    if (!parsed) {
        fault = "\"" + std::string(settings) + "\" is no setting of a serial line";
    } else if (line == state->lines.end() || !line->second.plugged) {
        fault = "No such file or directory";
    } else {
        line->second.input.clear();
        state->device = device;
        state->settings = *parsed;
        ++state->openings;
    }
    if (!fault.empty()) {
        Log::Warning("the serial port {} is not opened: {}", device, fault);
    }
    return fault;
}

void SerialPort::Close() {
    state->device.clear();
}

bool SerialPort::IsOpen() const {
    return !state->device.empty();
}

std::string SerialPort::Read() {
    if (!IsOpen()) {
        return {};
    }
    State::Line& line = state->lines[state->device];
    std::string input = line.input.substr(0, mostRead);
    line.input.erase(0, input.size());
    if (!line.plugged && line.input.empty()) {
        Log::Warning("the serial port {} has gone", state->device);
        Close();
    }
    return input;
}

}  // namespace zvr
