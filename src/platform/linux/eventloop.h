#pragma once

#include "platform/eventloop.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QObject>

#include <array>
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
    bool quitting = false;
    int exitCode = 0;

    void Turn();  ///< runs what is pending, waits for something if nothing is
};

}  // namespace zvr
