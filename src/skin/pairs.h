#pragma once

#include <array>
#include <span>
#include <string_view>

namespace zvr {

class Program;

/// Two buttons on one spot that are one key with two looks. The program brings the one to the front that fits.
struct ButtonPair {
    std::string_view off;  ///< command of the button that shows while `isOn` says no
    std::string_view on;   ///< of the other; the same command twice: of the two the one that the skin names first
    bool (*isOn)(const Program&);
    std::string_view meaning;  ///< for skin authors: when the second one shows
};

[[nodiscard]] std::span<const ButtonPair> ButtonPairs();

/// Two commands, in any order, of one pair.
[[nodiscard]] bool IsTogglePair(std::string_view a, std::string_view b);

/// Brings the button to the front that tells it, on every form.
void ShowPair(Program& program, const ButtonPair& pair, bool on);

/// What the pairs show, so that a tick without news moves nothing.
class PairStates {
public:
    void Refresh(Program& program);     ///< of the pairs whose state has changed since
    void RefreshAll(Program& program);  ///< a skin was loaded: its buttons lie in the order of its file

private:
    std::array<bool, 16> isOn{};
};

}  // namespace zvr
