#pragma once

#include <QSocketNotifier>

#include <signal.h>
#include <array>
#include <functional>
#include <memory>

namespace zvr {

/// The end of the session as the machine tells it: SIGTERM, SIGINT and SIGHUP, reported from the event loop.
/// One at a time; before and after its life the signals do what they did.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onSignal);  ///< needs the toolkit's application
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    int descriptor = -1;
    std::unique_ptr<QSocketNotifier> notifier;
    std::array<struct sigaction, 3> before{};
};

}  // namespace zvr
