#include "zvr_osk/linux/layoutswitch.h"

#include "platform/linux/x11.h"

#include <spawn.h>
#include <sys/wait.h>
#include <xcb/xcb.h>

#include <array>
#include <string_view>

namespace zvr::osk {

std::optional<LayoutNames> PresentLayouts(xcb_connection_t* connection) {
    constexpr std::string_view name = "_XKB_RULES_NAMES";
    const x11::Reply<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 1, name.size(), name.data()), nullptr));
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const x11::Reply<xcb_get_property_reply_t> property(
        atom ? xcb_get_property_reply(
                   connection, xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_STRING, 0, 1024), nullptr)
             : nullptr);
    if (!property || property->format != 8) {
        return std::nullopt;
    }
    std::string_view rest(static_cast<const char*>(xcb_get_property_value(property.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(property.get())));
    LayoutNames names;
    for (std::string* part : {&names.rules, &names.model, &names.layouts, &names.variants, &names.options}) {
        const std::size_t end = rest.find('\0');
        if (end == rest.npos) {
            return std::nullopt;
        }
        *part = rest.substr(0, end);
        rest.remove_prefix(end + 1);
    }
    return names.layouts.empty() ? std::nullopt : std::optional(names);
}

bool UseLayouts(const LayoutNames& names) {
    // Options add up, so those that stand are cleared first.
    std::array<std::string, 13> words{"setxkbmap", "-rules",      names.rules,  "-model",       names.model,
                                      "-layout",   names.layouts, "-variant",   names.variants, "-option",
                                      "",          "-option",     names.options};
    std::array<char*, words.size() + 1> arguments{};
    for (std::size_t i = 0; i < words.size(); ++i) {
        arguments[i] = words[i].data();
    }
    pid_t child = 0;
    int status = -1;
    return posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0 &&
           waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace zvr::osk
