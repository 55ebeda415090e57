#include "zvr_osk/keyboard.h"

#include "platform/characters.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace zvr::osk {
namespace {

using namespace std::chrono_literals;
constexpr Keyboard::Time beforeRepeat = 450ms;
constexpr Keyboard::Time betweenRepeats = 60ms;
constexpr Keyboard::Time beforeAlternative = 500ms;
constexpr Keyboard::Time betweenAlternatives = 400ms;
/// Rows that a finger goes up or down before the keyboard comes along: less is a finger that changed its mind.
constexpr double rowsBeforeDrag = 1.5;

char32_t Capital(char32_t sign) {
    return static_cast<char32_t>(text::CapitalLetter(static_cast<std::int32_t>(sign)));
}

}  // namespace

Keyboard::Keyboard(Events events, std::size_t layout) : events(std::move(events)), layout(layout) {}

void Keyboard::Fit(const Measures& newMeasures, int newWidth) {
    measures = newMeasures;
    width = newWidth;
    Lay();
}

void Keyboard::UseLayout(std::size_t index) {
    layout = index;
    Lay();
}

void Keyboard::UsePage(Page newPage) {
    page = newPage;
    Lay();
}

void Keyboard::Lay() {
    press.reset();
    keys = PlaceKeys(RowsOf(PresentLayout(), page), measures, width);
    events.changed();
}

void Keyboard::Down(int finger, Point at, int screenY, Time now) {
    // Two thumbs type faster than each of them lifts: the letters come in the order of the presses.
    Settle();
    const auto hit =
        std::find_if(keys.begin(), keys.end(), [at](const PlacedKey& key) { return key.touch.Contains(at); });
    press = Press{.finger = finger, .screenY = screenY};
    if (hit != keys.end()) {
        press->key = static_cast<std::size_t>(hit - keys.begin());
        press->next = now + (Repeats(hit->key.act) ? beforeRepeat : beforeAlternative);
    }
    events.changed();
}

void Keyboard::Move(int finger, Point at, int screenY) {
    if (!press || press->finger != finger) {
        return;
    }
    if (press->key && !keys[*press->key].touch.Contains(at)) {
        press->key.reset();
        events.changed();
    }
    const int way = screenY - press->screenY;
    if (!press->drags && !press->acted && std::abs(way) > rowsBeforeDrag * (measures.keyHeight + measures.gap)) {
        press->drags = true;
    }
    if (press->drags) {
        events.drag(way);
    }
}

void Keyboard::Up(int finger) {
    if (press && press->finger == finger) {
        Settle();
    }
}

void Keyboard::Cancel() {
    if (press) {
        press->key.reset();
        Settle();
    }
}

void Keyboard::Settle() {
    if (!press) {
        return;
    }
    const Press settled = *press;
    if (settled.key && !settled.acted) {
        const PlacedKey key = keys[*settled.key];
        const char32_t sign = SignOf(key);
        press.reset();
        if (key.key.act == Act::sign) {
            events.type(sign);
            shift = shift == Shift::once ? Shift::off : shift;
        } else {
            Do(key);
        }
    }
    press.reset();
    if (settled.drags) {
        events.drop();
    }
    events.changed();
}

void Keyboard::Do(const PlacedKey& key) {
    switch (key.key.act) {
        case Act::shift:
            shift = shift == Shift::off ? Shift::once : shift == Shift::once ? Shift::locked : Shift::off;
            break;
        case Act::page:
            UsePage(page == Page::letters ? Page::signs : Page::letters);
            break;
        case Act::layout:
            UseLayout((layout + 1) % Layouts().size());
            events.otherLayout();
            break;
        case Act::edge:
            events.otherEdge();
            break;
        case Act::hide:
            events.hide();
            break;
        case Act::backspace:
        case Act::enter:
        case Act::left:
        case Act::right:
            events.strike(key.key.act);
            break;
        case Act::sign:
        case Act::nothing:
            break;
    }
}

void Keyboard::TimePassed(Time now) {
    const auto next = NextTime();
    if (!next || now < *next) {
        return;
    }
    const Key& key = keys[*press->key].key;
    // From now on, not from when it was due: a machine that slept doesn't catch up.
    if (Repeats(key.act)) {
        press->acted = true;
        press->next = now + betweenRepeats;
        events.strike(key.act);
        return;
    }
    press->alternative = (press->alternative + 1) % (Alternatives(key) + 1);
    press->next = now + betweenAlternatives;
    events.changed();
}

std::optional<Keyboard::Time> Keyboard::NextTime() const {
    if (!press || !press->key) {
        return std::nullopt;
    }
    const Key& key = keys[*press->key].key;
    return Repeats(key.act) || Alternatives(key) > 0 ? std::optional(press->next) : std::nullopt;
}

bool Keyboard::IsPressed(const PlacedKey& key) const {
    return press && press->key && &keys[*press->key] == &key;
}

char32_t Keyboard::SignOf(const PlacedKey& key) const {
    char32_t sign = key.key.sign;
    if (press && press->alternative > 0 && press->key && keys[*press->key].place == key.place) {
        sign = AlternativesOf(sign)[press->alternative - 1];
    }
    return shift == Shift::off || page == Page::signs ? sign : Capital(sign);
}

bool Keyboard::Repeats(Act act) const {
    return act == Act::backspace || act == Act::left || act == Act::right;
}

std::size_t Keyboard::Alternatives(const Key& key) const {
    return key.act == Act::sign ? AlternativesOf(key.sign).size() : 0;
}

}  // namespace zvr::osk
