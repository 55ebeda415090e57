#include "platform/linux/signals.h"

#include "platform/log.h"

#include <sys/eventfd.h>
#include <unistd.h>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace zvr {
namespace {

constexpr std::array signalsOfTheEnd{SIGTERM, SIGINT, SIGHUP};

/// All that a handler may reach. Blocking the signals and reading them elsewhere would need no such variable,
/// but programs that are started would inherit the block, and nobody could end them.
std::atomic<int> wakeDescriptor{-1};

void OnSignal(int) {
    const int errorBefore = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &one, sizeof one);
    errno = errorBefore;
}

}  // namespace

EndSignals::EndSignals(std::function<void()> onSignal) {
    descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (descriptor < 0) {
        Log::Error("signals end the program without saving: {}", std::strerror(errno));
        return;  // better an end without saving than a program that nothing ends
    }
    wakeDescriptor = descriptor;
    notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [this, onSignal = std::move(onSignal)] {
        std::uint64_t count = 0;
        if (read(descriptor, &count, sizeof count) == static_cast<ssize_t>(sizeof count)) {
            onSignal();
        }
    });
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < signalsOfTheEnd.size(); ++i) {
        sigaction(signalsOfTheEnd[i], &action, &before[i]);
    }
}

EndSignals::~EndSignals() {
    if (descriptor < 0) {
        return;
    }
    for (std::size_t i = 0; i < signalsOfTheEnd.size(); ++i) {
        sigaction(signalsOfTheEnd[i], &before[i], nullptr);
    }
    wakeDescriptor = -1;
    notifier.reset();
    close(descriptor);
}

}  // namespace zvr
