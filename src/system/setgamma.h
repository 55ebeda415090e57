#pragma once

#include "platform/display.h"

#include <array>
#include <optional>
#include <string>

namespace zvr {

/// Four brightness levels of the display, and the file that brings the display back after a run that was killed.
class SetGamma {
public:
    /// `folder` takes the safety file "restore.bsf".
    SetGamma(Display& display, std::string folder);

    void RestoreFromRampFile();  ///< undoes the dimming of a run that did not end properly
    void InitRamps();            ///< the display's ramp as it is becomes level 1
    void SaveRampFile();
    void RemoveRampFile();
    void RestoreOriginalRamp();

    /// 1 bright to 4 dark. False, and nothing set, for any other level.
    bool SetBrightness(int level);

private:
    Display& display;
    std::string file;
    std::array<std::optional<GammaRamp>, 4> levels;
};

/// One line an entry: index=R,G,B as signed 16-bit numbers.
[[nodiscard]] std::string RampText(const GammaRamp& ramp);
[[nodiscard]] std::optional<GammaRamp> ParseRamp(const std::string& text);  ///< none unless all 256 entries are there

}  // namespace zvr
