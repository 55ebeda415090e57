#include "skin/clsstyle.h"

#include "platform/screen.h"

namespace zvr {
namespace {

constexpr std::uint32_t layered = 0x80000;  ///< of the extended style: the window has an alpha of its own
constexpr int opaque = 255;

}  // namespace

bool clsStyle::Set(Words words, std::uint32_t bits, bool on) {
    if (Client == nullptr) {
        return false;
    }
    auto& property = Client->*words;
    property = on ? property.get() | bits : property.get() & ~bits;
    return ((property.get() & bits) == bits) == on;
}

bool clsStyle::SetTopMost(bool on) {
    if (Client == nullptr) {
        return false;
    }
    Client->topMost = on;
    return true;
}

void clsStyle::MouseDown() {
    if (Client != nullptr && AutoDrag) {
        screen->StartDrag(*Client);
    }
}

void SetFormAlpha(Form& form, int alpha) {
    if (alpha < opaque) {
        form.extendedStyle = form.extendedStyle.get() | layered;
        form.alpha = alpha;
    } else {
        form.extendedStyle = form.extendedStyle.get() ^ layered;
        form.alpha = opaque;
    }
}

}  // namespace zvr
