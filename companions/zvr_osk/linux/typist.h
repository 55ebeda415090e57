#pragma once

#include "zvr_osk/keycodes.h"

#include <memory>
#include <string_view>

namespace zvr::osk {

/// Presses keys as if they were pressed on a real keyboard, for whatever window has the focus. No key stays down
/// between two calls.
class Typist {
public:
    Typist();
    ~Typist();  ///< the user's layouts are as they were before
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    /// Releases what an earlier run that was killed has left pressed.
    void ReleaseAll();
    /// Makes ready for the characters: others come too, but the window manager stands still for a moment at each new
    /// one.
    void Prepare(std::u32string_view characters);
    void Type(char32_t character);
    void Strike(Symbol symbol);  ///< a key without a character

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr::osk
