#include "platform/processes.h"

#include <cstdlib>
#include <string_view>

// Anybody may write a list of programs by hand. What is found is a file, and no argument is made up.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    const auto call = zvr::ReadCommandLine(line);
    if (!call) {
        return 0;
    }
    if (call->file.find('/') == std::string::npos) {
        std::abort();
    }
    std::size_t letters = 0;
    for (const std::string& argument : call->arguments) {
        letters += argument.size();
    }
    if (letters > size) {
        std::abort();
    }
    return 0;
}
