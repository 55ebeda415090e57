#include "core/program.h"
#include "platform/log.h"
#include "platform/platform.h"

#include <filesystem>
#include <string>
#include <vector>

namespace {

/// Where the running file really lies, so that the program folder can be moved and linked to.
zvr::ProgramPlace PlaceOf(const char* startedAs) {
    std::error_code error;
    std::filesystem::path file = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        file = std::filesystem::absolute(startedAs, error);
    }
    return {file.parent_path().string(), file.filename().string()};
}

}  // namespace

int main(int argc, char** argv) {
    zvr::Log::UseStandardError(true);
    zvr::Platform platform;
    zvr::Program program(platform, PlaceOf(argv[0]));
    program.Start(std::vector<std::string>(argv + 1, argv + argc));
    return platform.loop.Run();
}
