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

std::uint32_t Level(long high, long low) {
    return (static_cast<std::uint32_t>(high & loudest) << 16U) + static_cast<std::uint32_t>(low & loudest);
}

}  // namespace

SysVolume::SysVolume(Mixer& mixer, clsVolume& lines, PlayQueue& player)
    : mixer(&mixer), lines(&lines), player(&player) {}

void SysVolume::GetWaveVolume(long& volume, long& balance) const {
    const auto level = mixer->WaveLevel();
    if (!level) {
        return;
    }
    const auto [high, low] = SplitByText(*level);
    if (low <= high) {
        volume = high;
        balance = high == 0 ? 0 : -RoundHalfEven(100.0 - static_cast<double>(low) * 100.0 / static_cast<double>(high));
    } else {
        volume = low;
        balance = RoundHalfEven(100.0 - static_cast<double>(high) * 100.0 / static_cast<double>(low));
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
    const std::string half = Hexadecimal(std::min(left, right));
    SetLevel(static_cast<std::uint32_t>(LeadingNumber("&H" + half + half)));
}

void SysVolume::SetLevel(std::uint32_t level) {
    mixer->SetWaveLevel(level);
    knownLevel = level;
}

void SysVolume::ReadWaveVolume() {
    long volume = 0;
    long balance = 0;
    GetWaveVolume(volume, balance);
    waveVolume = static_cast<int>(RoundHalfEven(static_cast<double>(volume) * 100.0 / loudest));
    knownLevel = mixer->WaveLevel();
}

void SysVolume::FollowOutsideChange() {
    // Not at every tick: a change of ours may have kept the percent on purpose.
    if (const auto level = mixer->WaveLevel(); level && level != knownLevel) {
        ReadWaveVolume();
    }
}

long SysVolume::Stepped(long percent, long delta) const {
    if (!exponentialVolumeChanges) {
        return percent + delta;
    }
    const long step =
        std::max(1L, RoundHalfEven(std::pow(static_cast<double>(percent), static_cast<double>(volStepping) / 100.0)));
    return delta >= 1 ? percent + step : percent - step;
}

void SysVolume::ChangeWaveVolume(long delta, bool keepPercent) {
    if (delta == 0) {
        return;
    }
    long volume = 0;
    long balance = 0;
    GetWaveVolume(volume, balance);
    const long present = RoundHalfEven(static_cast<double>(volume) * 100.0 / loudest);
    const long percent = std::clamp(Stepped(present, delta), 0L, 100L);
    const auto share = [percent](long whole) {
        return RoundHalfEven(static_cast<double>(whole) / 100.0 * static_cast<double>(percent));
    };
    SetWaveVolume(share(loudest), balance, keepPercent);
    if (alsoChangeCDVolume) {
        lines->SetCD_Volume(share(lines->MaxCDVolume()));
    }
    if (alsoChangeLineInVolume) {
        lines->SetLineInVolume(share(lines->MaxLineInVolume()));
    }
}

void SysVolume::ChangeMediaVolume(long delta) {
    if (useWaveVolumeOnly) {
        ChangeWaveVolume(delta);
    } else {
        player->SetVolume(static_cast<int>(Stepped(player->Volume(), delta)));
    }
}

}  // namespace zvr
