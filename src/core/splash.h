#pragma once

#include "platform/eventloop.h"
#include "ui/form.h"

namespace zvr {

class Program;

/// The box that stands while the program starts: checks what it can't run without, then loads the root form.
class Splash {
public:
    explicit Splash(Program& program);

    Form form{"splash", FormRole::window};

    void Load();
    void Close();

private:
    void ShowActivity();
    void Finish();

    Program& program;
    Control* lblLoadingMsg = nullptr;
    int activity = 0;
    Timer timer;
    Timer tmrActivity;
};

}  // namespace zvr
