#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

/// The box to read and write short messages in.
class SmsBox {
public:
    explicit SmsBox(Program& program);

    Form form{"smsbox"};
    Control* smsnumberbox = nullptr;
    Control* smstextbox = nullptr;

    void Load();

private:
    Program& program;
};

}  // namespace zvr
