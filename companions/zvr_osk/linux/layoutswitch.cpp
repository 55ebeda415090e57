#include "zvr_osk/linux/layoutswitch.h"

#include "platform/linux/x11.h"

#include <spawn.h>
#include <sys/wait.h>
#include <xcb/xcb.h>

#include <array>
#include <string_view>

namespace zvr::osk {
namespace {

constexpr std::string_view presentProperty = "_XKB_RULES_NAMES";
constexpr std::string_view noteProperty = "_ZVR_OSK_LAYOUTS";

xcb_window_t RootOf(xcb_connection_t* connection) {
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_atom_t AtomOf(xcb_connection_t* connection, std::string_view name) {
    const x11::Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return atom ? atom->atom : XCB_ATOM_NONE;
}

/// Of the root window; empty for none.
std::string TextProperty(xcb_connection_t* connection, std::string_view name) {
    const x11::Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, RootOf(connection), AtomOf(connection, name), XCB_ATOM_STRING, 0, 1024),
        nullptr));
    return !property || property->format != 8
               ? std::string()
               : std::string(static_cast<const char*>(xcb_get_property_value(property.get())),
                             static_cast<std::size_t>(xcb_get_property_value_length(property.get())));
}

std::optional<LayoutNames> TakeNames(std::string_view& rest) {
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

std::string TextOf(const LayoutNames& names) {
    std::string text;
    for (const std::string& part : {names.rules, names.model, names.layouts, names.variants, names.options}) {
        text += part + '\0';
    }
    return text;
}

}  // namespace

std::optional<LayoutNames> PresentLayouts(xcb_connection_t* connection) {
    const std::string property = TextProperty(connection, presentProperty);
    std::string_view rest = property;
    return TakeNames(rest);
}

std::optional<AddedLayout> LeftLayout(xcb_connection_t* connection) {
    const std::string property = TextProperty(connection, noteProperty);
    std::string_view rest = property;
    const auto users = TakeNames(rest);
    const auto ours = users ? TakeNames(rest) : std::nullopt;
    return ours && ours == PresentLayouts(connection) ? std::optional<AddedLayout>({*users, *ours}) : std::nullopt;
}

void NoteLayout(xcb_connection_t* connection, const std::optional<AddedLayout>& added) {
    const std::string text = added ? TextOf(added->users) + TextOf(added->ours) : std::string();
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, RootOf(connection), AtomOf(connection, noteProperty),
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    xcb_flush(connection);
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
