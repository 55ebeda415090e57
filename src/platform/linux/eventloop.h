#pragma once

#include "platform/eventloop.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>

#include <array>
#include <ctime>
#include <functional>
#include <memory>

namespace zvr {

/// Holds the toolkit's application object, which must be there before any other service of the machine.
struct EventLoop::State {
    State();

    // The toolkit keeps references to both for its whole life.
    std::array<char, 4> programName{"zvr"};
    std::array<char*, 2> arguments{programName.data(), nullptr};
    int argumentCount = 1;
    std::unique_ptr<QApplication> application;
    QObject receiver;  ///< of posted tasks
    QElapsedTimer sinceTurn;
    std::time_t zoneMinute = -1;       ///< since the epoch, in which the time zone was looked up
    long zoneOffset = 0;               ///< seconds
    std::function<void()> beforeRest;  ///< called when all that was pending has been done; cheap when nothing is due
    bool quitting = false;
    int exitCode = 0;

    void Rest() const;
    void Turn();  ///< runs what is pending, waits for something if nothing is
};

}  // namespace zvr
