#include "system/setgamma.h"

#include "core/numbers.h"
#include "platform/files.h"
#include "platform/log.h"

#include <charconv>
#include <cstdlib>

namespace zvr {
namespace {

constexpr std::array<double, 4> levelFactors{1.0, 0.8, 0.65, 0.5};

GammaRamp Scaled(const GammaRamp& ramp, double factor) {
    GammaRamp scaled{};
    for (std::size_t channel = 0; channel < ramp.size(); ++channel) {
        for (std::size_t i = 0; i < ramp[channel].size(); ++i) {
            scaled[channel][i] = static_cast<std::uint16_t>(RoundHalfEven(ramp[channel][i] * factor));
        }
    }
    return scaled;
}

/// Displays round to what their tables hold, 8 bits in the coarsest.
bool Alike(const std::optional<GammaRamp>& ramp, const GammaRamp& wanted) {
    constexpr int rounding = 512;
    for (std::size_t channel = 0; ramp && channel < wanted.size(); ++channel) {
        for (std::size_t i = 0; i < wanted[channel].size(); ++i) {
            if (std::abs((*ramp)[channel][i] - wanted[channel][i]) > rounding) {
                return false;
            }
        }
    }
    return ramp.has_value();
}

/// Takes a number and the character after it from the front of the text. False if they aren't there.
bool Take(std::string_view& text, int& number, char after) {
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(result.ptr - text.data());
    if (result.ec != std::errc{} || length >= text.size() || text[length] != after) {
        return false;
    }
    text.remove_prefix(length + 1);
    return true;
}

}  // namespace

SetGamma::SetGamma(Display& display, std::string folder, Dim dim)
    : display(display), file(std::move(folder) + files::separator + "restore.bsf"), dim(std::move(dim)) {}

void SetGamma::RestoreFromRampFile() {
    const auto text = files::Read(file);
    if (const auto ramp = text ? ParseRamp(*text) : std::nullopt) {
        display.SetRamp(*ramp);
    } else if (text) {
        Log::Warning("{} holds no brightness that could be put back", file);
    }
}

void SetGamma::InitRamps() {
    const auto ramp = display.Ramp();
    if (!ramp) {
        Log::Note("the display has no table of brightness; the windows are darkened instead");
    }
    for (std::size_t level = 0; level < levels.size(); ++level) {
        levels[level] = ramp ? std::optional(Scaled(*ramp, levelFactors[level])) : std::nullopt;
    }
}

void SetGamma::SaveRampFile() {
    SaveCurrentRamp();
    if (savedRamp) {
        (void)files::WriteAtomic(file, RampText(*savedRamp));
    }
}

void SetGamma::RemoveRampFile() {
    (void)files::Remove(file);
}

void SetGamma::RestoreOriginalRamp() {
    if (levels[0]) {
        display.SetRamp(*levels[0]);
    }
    DimBy(0);
}

void SetGamma::SaveCurrentRamp() {
    savedRamp = display.Ramp();
    savedDim = dimmedBy;
}

void SetGamma::RestoreSavedRamp() {
    if (savedRamp) {
        display.SetRamp(*savedRamp);
    }
    DimBy(savedDim);
}

void SetGamma::DimBy(double share) {
    if (share != dimmedBy) {
        dimmedBy = share;
        dim(share);
    }
}

bool SetGamma::SetBrightness(int level) {
    if (level < 1 || level > static_cast<int>(levels.size())) {
        return false;
    }
    const auto index = static_cast<std::size_t>(level) - 1;
    bool kept = false;
    if (const auto& ramp = levels[index]) {
        display.SetRamp(*ramp);
        kept = Alike(display.Ramp(), *ramp);
        if (!kept) {
            display.SetRamp(*levels[0]);  // what it has made of the other would add to ours
        }
    }
    DimBy(kept ? 0 : 1 - levelFactors[index]);
    return true;
}

std::string RampText(const GammaRamp& ramp) {
    std::string text;
    for (std::size_t i = 0; i < 256; ++i) {
        text += std::to_string(i) + "=";
        for (std::size_t channel = 0; channel < ramp.size(); ++channel) {
            text += std::to_string(static_cast<std::int16_t>(ramp[channel][i])) + (channel < 2 ? "," : "\n");
        }
    }
    return text;
}

std::optional<GammaRamp> ParseRamp(const std::string& text) {
    GammaRamp ramp{};
    std::string_view rest = text;
    for (int i = 0; i < 256; ++i) {
        int index = 0;
        std::array<int, 3> values{};
        if (!Take(rest, index, '=') || index != i || !Take(rest, values[0], ',') || !Take(rest, values[1], ',') ||
            !Take(rest, values[2], '\n')) {
            return std::nullopt;
        }
        for (std::size_t channel = 0; channel < values.size(); ++channel) {
            if (values[channel] < -32768 || values[channel] > 32767) {
                return std::nullopt;
            }
            ramp[channel][static_cast<std::size_t>(i)] = static_cast<std::uint16_t>(values[channel]);
        }
    }
    return ramp;
}

}  // namespace zvr
