#pragma once

#include <optional>
#include <string>

struct xcb_connection_t;

namespace zvr::osk {

/// The user's keyboard layouts, as the tool that set them has noted: rules, model, layouts, variants, options.
struct LayoutNames {
    std::string rules;
    std::string model;
    std::string layouts;  ///< parted by commas
    std::string variants;
    std::string options;
    friend bool operator==(const LayoutNames&, const LayoutNames&) = default;
};

[[nodiscard]] std::optional<LayoutNames> PresentLayouts(xcb_connection_t* connection);
/// A layout was added to the user's.
struct AddedLayout {
    LayoutNames users;  ///< before
    LayoutNames ours;   ///< with it
};
/// What a run that was killed has left. None where the user has chosen others since.
[[nodiscard]] std::optional<AddedLayout> LeftLayout(xcb_connection_t* connection);
/// For the run after this one, should this one be killed; none once the user's are back.
void NoteLayout(xcb_connection_t* connection, const std::optional<AddedLayout>& added);
/// By the tool `setxkbmap`, which the X server comes with. Waits some 20 ms for it.
bool UseLayouts(const LayoutNames& names);

}  // namespace zvr::osk
