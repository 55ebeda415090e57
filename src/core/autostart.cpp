#include "core/autostart.h"

#include "core/program.h"
#include "platform/platform.h"

namespace zvr {
namespace {

const std::string entryName = "zVR" + std::to_string(ZVR_VERSION_MAJOR) + std::to_string(ZVR_VERSION_MINOR);

}  // namespace

bool isAutostartSet(const Program& program) {
    return program.platform.autostart.IsSet(entryName);
}

void setAutostart(Program& program) {
    program.platform.autostart.Set(entryName, program.place.folder + files::separator + program.place.name);
}

void clearAutostart(Program& program) {
    program.platform.autostart.Clear(entryName);
}

}  // namespace zvr
