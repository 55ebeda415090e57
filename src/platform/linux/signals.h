#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zvr {

/// The end of the session as the machine tells it: SIGTERM, SIGINT, SIGHUP, reported from the event loop.
/// They stay blocked for the process and its threads; whoever starts a program gives it an empty signal mask.
class EndSignals {
public:
    EndSignals();  ///< blocks them; before any other thread starts, or that one would die of them
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    void Listen(std::function<void()> onSignal);  ///< needs the toolkit's application; null listens no more

private:
    int descriptor = -1;
    std::unique_ptr<QSocketNotifier> notifier;
};

}  // namespace zvr
