#pragma once

#include "platform/eventloop.h"

#include <cstdint>

namespace zvr {

class Program;

/// The heartbeat: every 100 ms, in a fixed order, skip, sliders, fades, labels, day and night.
/// Every value that the driver sees change is written here.
class Tick {
public:
    explicit Tick(Program& program);

    void Run();

    /// 0..11; every second tick moves running titles and skips.
    [[nodiscard]] bool IsEven() const { return tickCount % 2 == 0; }

private:
    void DetectSleep();
    void Skip();
    void EndSkip(double position);
    void MovePositionSlider();
    void MoveVolumeSlider();
    void SwitchDayNight();

    Program& program;
    std::int64_t lastTick = 0;  ///< milliseconds of the wall clock, 0 before the first tick
    int tickCount = 0;
};

}  // namespace zvr
