#include "system/setgamma.h"

#include <cstdlib>

// A file that a killed run has left half written, or anybody else. What is read is what would be written.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto ramp = zvr::ParseRamp(text);
    if (ramp && zvr::ParseRamp(zvr::RampText(*ramp)) != ramp) {
        std::abort();
    }
    return 0;
}
