#include "platform/serialport.h"

#include "platform/log.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace zvr {
namespace {

constexpr std::array<std::pair<int, speed_t>, 18> speeds{{{300, B300},
                                                          {600, B600},
                                                          {1200, B1200},
                                                          {1800, B1800},
                                                          {2400, B2400},
                                                          {4800, B4800},
                                                          {9600, B9600},
                                                          {19200, B19200},
                                                          {38400, B38400},
                                                          {57600, B57600},
                                                          {115200, B115200},
                                                          {230400, B230400},
                                                          {460800, B460800},
                                                          {500000, B500000},
                                                          {576000, B576000},
                                                          {921600, B921600},
                                                          {1000000, B1000000},
                                                          {2000000, B2000000}}};

/// Empty on success.
std::string SetUp(int line, const SerialSettings& settings) {
    const auto* const speed =
        std::find_if(speeds.begin(), speeds.end(), [&](const auto& row) { return row.first == settings.baud; });
    if (speed == speeds.end()) {
        return "no line runs at " + std::to_string(settings.baud) + " baud";
    }
    termios modes{};
    if (tcgetattr(line, &modes) != 0) {
        return std::strerror(errno);
    }
    cfmakeraw(&modes);
    // VMIN 1: with 0 a read of nothing would look like the end of the line.
    modes.c_cc[VMIN] = 1;
    modes.c_cc[VTIME] = 0;
    constexpr std::array<tcflag_t, 4> bits{CS5, CS6, CS7, CS8};
    modes.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CMSPAR | CSTOPB | CRTSCTS);
    modes.c_cflag |= CLOCAL | CREAD | bits[static_cast<std::size_t>(settings.dataBits) - 5];
    modes.c_cflag |= settings.parity == Parity::none ? 0U : static_cast<tcflag_t>(PARENB);
    modes.c_cflag |=
        settings.parity == Parity::odd || settings.parity == Parity::mark ? static_cast<tcflag_t>(PARODD) : 0U;
    modes.c_cflag |=
        settings.parity == Parity::mark || settings.parity == Parity::space ? static_cast<tcflag_t>(CMSPAR) : 0U;
    modes.c_cflag |= settings.twoStopBits ? static_cast<tcflag_t>(CSTOPB) : 0U;
    cfsetispeed(&modes, speed->second);
    cfsetospeed(&modes, speed->second);
    if (tcsetattr(line, TCSANOW, &modes) != 0) {
        return std::strerror(errno);
    }
    tcflush(line, TCIOFLUSH);
    return {};
}

}  // namespace

struct SerialPort::State {
    int line = -1;
    std::string device;

    ~State() { Close(); }
    void Close() {
        if (line >= 0) {
            close(line);
            line = -1;
        }
    }
};

SerialPort::SerialPort() : state(std::make_unique<State>()) {}
SerialPort::~SerialPort() = default;

SerialPort::ErrorText SerialPort::Open(const std::string& device, std::string_view settings) {
    state->Close();
    const auto parsed = ParseSerialSettings(settings);
    ErrorText fault;
    if (!parsed) {
        fault = "\"" + std::string(settings) + "\" is no setting of a serial line";
    } else {
        state->device = device;
        state->line = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        fault = state->line < 0 ? std::strerror(errno) : SetUp(state->line, *parsed);
    }
    if (!fault.empty()) {
        state->Close();
        Log::Warning("the serial port {} is not opened: {}", device, fault);
    }
    return fault;
}

void SerialPort::Close() {
    state->Close();
}

bool SerialPort::IsOpen() const {
    return state->line >= 0;
}

std::string SerialPort::Read() {
    std::string input(mostRead, '\0');
    std::size_t length = 0;
    while (IsOpen() && length < mostRead) {
        const ssize_t got = read(state->line, input.data() + length, mostRead - length);
        if (got > 0) {
            length += static_cast<std::size_t>(got);
        } else if (got < 0 && errno == EINTR) {
            continue;
        } else if (got < 0 && errno == EAGAIN) {
            break;
        } else {
            Log::Warning("the serial port {} has gone", state->device);
            state->Close();
        }
    }
    input.resize(length);
    return input;
}

}  // namespace zvr
