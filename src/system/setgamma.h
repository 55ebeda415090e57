#pragma once

#include "platform/display.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace zvr {

/// Four brightness levels of the display, and the file that brings the display back after a run that was killed.
class SetGamma {
public:
    using Dim = std::function<void(double share)>;

    /// `folder` takes the safety file "restore.bsf". `dim` darkens the program's windows by a share, 0 for not at all:
    /// it does for a display that takes no ramp.
    SetGamma(Display& display, std::string folder, Dim dim);

    void RestoreFromRampFile();  ///< undoes the dimming of a run that did not end properly
    void InitRamps();            ///< the display's ramp as it is becomes level 1
    void SaveRampFile();
    void RemoveRampFile();
    void RestoreOriginalRamp();

    // Around trials: the display as it is, and back to that.
    void SaveCurrentRamp();
    void RestoreSavedRamp();

    /// 1 bright to 4 dark. False, and nothing set, for any other level.
    bool SetBrightness(int level);
    [[nodiscard]] double DimmedBy() const { return dimmedBy; }  ///< share that the windows are darkened by now

private:
    void DimBy(double share);

    Display& display;
    std::string file;
    Dim dim;
    double dimmedBy = 0;
    std::array<std::optional<GammaRamp>, 4> levels;
    std::optional<GammaRamp> savedRamp;
    double savedDim = 0;
};

/// One line an entry: index=R,G,B as signed 16-bit numbers.
[[nodiscard]] std::string RampText(const GammaRamp& ramp);
[[nodiscard]] std::optional<GammaRamp> ParseRamp(const std::string& text);  ///< none unless all 256 entries are there

}  // namespace zvr
