#include "platform/linux/signals.h"

#include <sys/signalfd.h>
#include <unistd.h>
#include <csignal>

namespace zvr {
namespace {

sigset_t SignalsOfTheEnd() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&set, number);
    }
    return set;
}

}  // namespace

EndSignals::EndSignals() {
    const sigset_t set = SignalsOfTheEnd();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    descriptor = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (descriptor < 0) {
        // Better an end without saving than a program that nothing ends.
        pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
    }
}

void EndSignals::Listen(std::function<void()> onSignal) {
    notifier.reset();
    if (descriptor < 0 || !onSignal) {
        return;
    }
    notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [this, onSignal = std::move(onSignal)] {
        signalfd_siginfo info{};
        bool any = false;
        while (read(descriptor, &info, sizeof info) == static_cast<ssize_t>(sizeof info)) {
            any = true;
        }
        if (any) {
            onSignal();
        }
    });
}

EndSignals::~EndSignals() {
    if (descriptor < 0) {
        return;
    }
    notifier.reset();
    close(descriptor);
    const sigset_t set = SignalsOfTheEnd();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

}  // namespace zvr
