#include "platform/instance.h"

#include "platform/linux/runtimefile.h"
#include "platform/log.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

namespace zvr {
namespace {

int OpenMark(const std::string& path) {
    return open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
}

}  // namespace

struct Instance::State {
    int descriptor = -1;
    ~State() {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
};

Instance::Instance() : state(std::make_unique<State>()) {}
Instance::~Instance() = default;

bool Instance::Claim() {
    if (state->descriptor >= 0) {
        return true;
    }
    int descriptor = -1;
    if (const std::string path = SessionFile("lock"); !path.empty()) {
        descriptor = OpenMark(path);
    }
    if (descriptor < 0) {
        descriptor = OpenMark(TemporaryFile("lock"));
    }
    if (descriptor < 0) {
        Log::Warning("a second start will not be noticed, there is no lock file: {}", std::strerror(errno));
        return true;  // a machine where no mark can be set still gets its program
    }
    if (flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close(descriptor);
        return false;
    }
    state->descriptor = descriptor;
    return true;
}

}  // namespace zvr
