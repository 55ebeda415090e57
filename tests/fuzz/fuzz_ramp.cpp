#include "target.h"

#include "system/setgamma.h"

// A file that a killed run has left half written, or anybody else. What is read is what would be written.
void zvr::Try(std::string_view input) {
    const auto ramp = ParseRamp(std::string(input));
    Require(!ramp || ParseRamp(RampText(*ramp)) == ramp);
}
