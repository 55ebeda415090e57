#include "contract/serialline.h"

#include "platform/headless/serialport.h"

namespace zvr::contract {

Receiver::Receiver(SerialPort& port) : device("/dev/receiver"), port(port) {
    port.state->lines[device] = {};
}

Receiver::~Receiver() = default;

void Receiver::Say(std::string_view bytes) {
    port.state->Say(device, bytes);
}

void Receiver::Unplug() {
    port.state->lines[device].plugged = false;
}

}  // namespace zvr::contract
