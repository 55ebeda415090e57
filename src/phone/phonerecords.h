#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zvr {

/// One phone book that the phone offers.
struct Phonebook {
    std::string Name;
    bool IsStatic = false;
    bool IsSorted = false;
    bool ShowTime = false;
    bool ShowDate = false;
};

/// One stored short message. Date and time are as the phone writes them.
struct SMS {
    std::string Sender;
    std::string Number;
    std::string SMSDate;
    std::string SMSTime;
    std::string Message;
    std::int16_t Index = 0;
};

/// One service of a Bluetooth device.
struct BTService {
    std::string Name;
    std::string Guid;
    std::string State;
    std::int16_t ConnectedPort = 0;
};

struct BTDevice {
    std::string Name;
    std::string BDA;  ///< its address
    std::string DevClass;
    bool Paired = false;
    std::int16_t ServiceCnt = 0;
    std::vector<BTService> Services;  ///< for who asks for them; no frame fills it
};

}  // namespace zvr
