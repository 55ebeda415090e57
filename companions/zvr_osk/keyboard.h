#pragma once

#include "zvr_osk/geometry.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace zvr::osk {

enum class Shift { off, once, locked };

/// The keys under the fingers: what shows, and what is typed when. Times are of one clock that only goes forward.
class Keyboard {
public:
    using Time = std::chrono::milliseconds;

    /// What it asks for. All are set.
    struct Events {
        std::function<void(char32_t)> type;
        std::function<void(Act)> strike;  ///< backspace, enter, left or right
        std::function<void()> hide;
        std::function<void()> otherEdge;
        std::function<void(int)> drag;      ///< to so many pixels below where the finger came down; above if negative
        std::function<void()> drop;         ///< ends what drag began
        std::function<void()> otherLayout;  ///< another one has been chosen
        std::function<void()> changed;      ///< something shows differently; `Keys` may be others
    };
    Keyboard(Events events, std::size_t layout);

    void Fit(const Measures& newMeasures, int newWidth);

    /// Points in the keyboard; `screenY` stays what it is while the keyboard is dragged along.
    void Down(int finger, Point at, int screenY, Time now);
    void Move(int finger, Point at, int screenY);
    void Up(int finger);
    void Cancel();  ///< what is pressed types nothing
    void TimePassed(Time now);
    [[nodiscard]] std::optional<Time> NextTime() const;  ///< when TimePassed has something to do

    [[nodiscard]] const std::vector<PlacedKey>& Keys() const { return keys; }
    [[nodiscard]] bool IsPressed(const PlacedKey& key) const;
    [[nodiscard]] char32_t SignOf(const PlacedKey& key) const;  ///< that it types now
    [[nodiscard]] Shift ShiftState() const { return shift; }
    [[nodiscard]] Page PresentPage() const { return page; }
    [[nodiscard]] const Layout& PresentLayout() const { return Layouts()[layout]; }
    [[nodiscard]] const Measures& PresentMeasures() const { return measures; }
    void UseLayout(std::size_t index);
    void UsePage(Page newPage);

private:
    struct Press {
        int finger = 0;
        std::optional<std::size_t> key{};  ///< none: taken back, or beside all keys
        int screenY = 0;
        Time next{};                  ///< when it repeats, or shows the next alternative
        std::size_t alternative = 0;  ///< 0: the key's own sign
        bool acted = false;           ///< by itself, while it is held
        bool drags = false;
    };
    void Lay();
    void Settle();
    void Do(const PlacedKey& key);
    [[nodiscard]] bool Repeats(Act act) const;
    [[nodiscard]] std::size_t Alternatives(const Key& key) const;

    Events events;
    Measures measures;
    int width = 0;
    std::size_t layout = 0;
    Page page = Page::letters;
    Shift shift = Shift::off;
    std::vector<PlacedKey> keys;
    std::optional<Press> press;
};

}  // namespace zvr::osk
