#pragma once

#include "platform/serialport.h"

#include <string>
#include <string_view>

namespace zvr::contract {

/// A receiver at the other end of a serial line; one implementation each.
class Receiver {
public:
    explicit Receiver(SerialPort& port);
    ~Receiver();
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    void Say(std::string_view bytes);
    void Unplug();  ///< for good

    std::string device;

private:
    SerialPort& port;
    int line = -1;
};

}  // namespace zvr::contract
