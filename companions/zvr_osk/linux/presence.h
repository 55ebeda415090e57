#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace zvr::osk {

/// The mark on the display that a keyboard is there, and what others do to its window.
class Presence {
public:
    Presence();
    ~Presence();
    Presence(const Presence&) = delete;
    Presence& operator=(const Presence&) = delete;

    /// False when a keyboard is there already: it has been asked to come up.
    [[nodiscard]] bool Claim();
    void Watch(std::uintptr_t window);  ///< is ours, and never takes the focus
    [[nodiscard]] int Descriptor() const;
    void Read();  ///< brings the window before the others if one lies over it, or if another run asks for it

private:
    xcb_connection_t* connection = nullptr;
    std::uint32_t mark = 0;    ///< atom
    std::uint32_t holder = 0;  ///< window that holds the mark
    std::uint32_t watched = 0;
};

}  // namespace zvr::osk
