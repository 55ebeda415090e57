#include "system/sysvolume.h"

#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace zvr {
namespace {

constexpr long loudest = 65535;

struct Channels {
    long high = 0;  ///< right
    long low = 0;   ///< left
};

std::string Hexadecimal(std::uint32_t value) {
    char digits[8];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value, 16).ptr;
    return {std::begin(digits), end};
}

/// Splits the value's digits in the middle, which is not the middle of the value when digits are missing.
Channels SplitByText(std::uint32_t level) {
    if (level == 0) {
        return {};
    }
    const std::string text = Hexadecimal(level);
    const std::size_t half = text.size() / 2;
    const auto part = [&](std::size_t from) { return RoundHalfEven(LeadingNumber("&H" + text.substr(from, half))); };
    return {part(0), part(text.size() - half)};
}

long PercentOf(long volume) {
    return RoundHalfEven(static_cast<double>(volume) * 100.0 / loudest);
}

long Share(long whole, long percent) {
    return RoundHalfEven(static_cast<double>(whole) / 100.0 * static_cast<double>(percent));
}

std::uint32_t Level(long high, long low) {
    return (static_cast<std::uint32_t>(high & loudest) << 16U) + static_cast<std::uint32_t>(low & loudest);
}

}  // namespace

SysVolume::SysVolume(Mixer& mixer, clsVolume& lines) : mixer(&mixer), lines(&lines) {}

SysVolume::Reading SysVolume::Read(std::uint32_t level) {
    const auto [high, low] = SplitByText(level);
    if (low > high) {
        return {low, RoundHalfEven(100.0 - static_cast<double>(high) * 100.0 / static_cast<double>(low))};
    }
    if (high == 0) {
        return {};
    }
    return {high, -RoundHalfEven(100.0 - static_cast<double>(low) * 100.0 / static_cast<double>(high))};
}

void SysVolume::GetWaveVolume(long& volume, long& balance) const {
    if (const auto level = mixer->WaveLevel()) {
        const Reading reading = Read(*level);
        volume = reading.volume;
        balance = reading.balance;
    }
}

void SysVolume::SetWaveVolume(long volume, long balance, bool keepPercent) {
    const long quieter =
        RoundHalfEven(static_cast<double>(volume) / 100.0 * static_cast<double>(100 - std::labs(balance)));
    SetLevel(Level(balance < 0 ? quieter : volume, balance > 0 ? quieter : volume));
    if (!keepPercent) {
        waveVolume = static_cast<int>(RoundHalfEven(static_cast<double>(volume) / loudest * 100.0));
    }
}

void SysVolume::CenterWaveBalance() {
    const auto level = mixer->WaveLevel();
    if (!level) {
        return;
    }
    const std::uint32_t left = *level & 0xFFFFU;
    const std::uint32_t right = *level >> 16U;
    if (left == right) {
        return;
    }
    // Joined as text, so a value of fewer than four digits becomes another one.
    const std::string half = Hexadecimal(std::max(left, right));
    SetLevel(static_cast<std::uint32_t>(LeadingNumber("&H" + half + half)));
}

void SysVolume::SetLevel(std::uint32_t level) {
    mixer->SetWaveLevel(level);
    if (mixer->WaveLevel()) {
        knownLevel = level;
    }
}

void SysVolume::ReadWaveVolume() {
    long volume = 0;
    long balance = 0;
    GetWaveVolume(volume, balance);
    waveVolume = static_cast<int>(PercentOf(volume));
    knownLevel = mixer->WaveLevel();
}

bool SysVolume::FollowMixer() {
    const auto level = mixer->WaveLevel();
    if (lines->FindAgain()) {
        const bool first = !knownLevel;
        if (!first) {
            SetLevel(*knownLevel);
        }
        ReadWaveVolume();
        return first;
    }
    // Not at every tick: a change of ours may have kept the percent on purpose.
    if (level && level != knownLevel) {
        ReadWaveVolume();
    }
    return false;
}

long SysVolume::Stepped(long percent, long delta) const {
    if (!exponentialVolumeChanges) {
        return percent + delta;
    }
    const long step =
        std::max(1L, RoundHalfEven(std::pow(static_cast<double>(percent), static_cast<double>(volStepping) / 100.0)));
    return delta >= 1 ? percent + step : percent - step;
}

SysVolume::Reading SysVolume::AtPercent(long percent, long balance) {
    return {Share(loudest, std::clamp(percent, 0L, 100L)), balance};
}

SysVolume::Reading SysVolume::Stepped(const Reading& from, long delta) const {
    return AtPercent(Stepped(PercentOf(from.volume), delta), from.balance);
}

void SysVolume::Apply(const Reading& reading, bool keepPercent) {
    SetWaveVolume(reading.volume, reading.balance, keepPercent);
    const long percent = PercentOf(reading.volume);
    if (alsoChangeCDVolume) {
        lines->SetCD_Volume(Share(lines->MaxCDVolume(), percent));
    }
    if (alsoChangeLineInVolume) {
        lines->SetLineInVolume(Share(lines->MaxLineInVolume(), percent));
    }
}

void SysVolume::ChangeWaveVolume(long delta, bool keepPercent) {
    if (delta != 0) {
        Reading present;
        GetWaveVolume(present.volume, present.balance);
        Apply(Stepped(present, delta), keepPercent);
    }
}

void SysVolume::ChangeWaveVolumeFromSilence(long percent) {
    Reading present;
    GetWaveVolume(present.volume, present.balance);
    const Reading silent = Stepped(present, -100);
    // With exponential changes the first step need not reach silence, and a silence has no balance.
    Apply(Stepped(silent.volume == 0 ? Reading{} : silent, percent), false);
}

void SysVolume::SetWavePercent(long percent) {
    Apply(AtPercent(percent, 0), false);
}

}  // namespace zvr
