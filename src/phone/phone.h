#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The phone screen.
class Phone {
public:
    explicit Phone(Program& program);

    Form form{"phone"};
    Control* phonebooklist = nullptr;
    Control* numberbox = nullptr;

    bool onCallShowMessage = true;
    bool onCallShowWindow = true;
    bool onSMSShowMessage = true;
    bool onSMSShowWindow = true;
    bool onCallPause = true;
    bool onHangupPlay = true;
    std::string phonebookName;

    std::string phoneBattery;
    std::string phoneSignal;
    std::string phoneStatus;
    int unreadSMS = 0;

    void Load();

private:
    Program& program;
};

}  // namespace zvr
