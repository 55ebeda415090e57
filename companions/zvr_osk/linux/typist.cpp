#include "zvr_osk/linux/typist.h"

#include "platform/linux/x11.h"
#include "zvr_osk/linux/layoutswitch.h"
#include "zvr_osk/linux/xkb.h"

#include <xcb/xcb.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <thread>

namespace zvr::osk {
namespace {

/// Where a run notes which keys nobody used before it: what they mean outlives it, and the next one takes them again.
constexpr std::string_view ownKeysProperty = "_ZVR_OSK_KEYS";
/// The layout that has what the keys of ours are drawn with, wherever the user's layouts lack most of it.
constexpr std::string_view latinLayout = "us";
constexpr std::size_t mostLayouts = 4;
/// A program that is slow asks what a key means when it gets round to it.
constexpr std::chrono::milliseconds beforeLayoutsGoBack{200};

struct Free {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap* map) const { xkb_keymap_unref(map); }
    void operator()(xkb_state* state) const { xkb_state_unref(state); }
};

bool IsOfKeypad(xkb_keysym_t symbol) {
    return symbol >= XKB_KEY_KP_Space && symbol <= XKB_KEY_KP_9;
}

Symbol SymbolOfKey(xkb_keysym_t keysym) {
    const std::uint32_t character = xkb_keysym_to_utf32(keysym);
    return character >= 0x20 && character != 0x7F ? SymbolOf(character) : keysym;
}

}  // namespace

struct Typist::State {
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = 0;
    std::uint16_t device = 0;
    std::uint8_t firstXkbEvent = 0;
    std::unique_ptr<xkb_context, Free> context;
    xcb_atom_t ownKeys = 0;

    bool stale = true;  ///< what is known of the map may be wrong
    std::vector<KeyMeaning> meanings;
    unsigned lockedModifiers = 0;  ///< that the meanings count with
    unsigned group = 0;
    unsigned lockedGroup = 0;
    std::uint8_t shiftKey = 0;
    std::uint8_t level3Key = 0;
    SpareKeys spare;
    std::optional<AddedLayout> added;

    bool Open();
    void Refresh();
    void ReadMeanings();
    void ReadMeaningsOf(xkb_keymap* map, unsigned layout, unsigned modifiers);
    void ReadSpareKeys();
    void Bind(const std::vector<Binding>& bindings);
    void NoteOwnKeys(const std::vector<Binding>& bindings);
    void AddLatinLayout();
    void Play(const KeyStroke& stroke);
    void Fake(std::uint8_t type, std::uint8_t code) {
        xcb_test_fake_input(connection, type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    }
    void LockGroup(unsigned wanted) {
        xcb_xkb_latch_lock_state(connection, device, 0, 0, 1, static_cast<std::uint8_t>(wanted), 0, 0, 0);
    }
    [[nodiscard]] std::vector<std::uint8_t> OwnKeys() const;
};

bool Typist::State::Open() {
    connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0 ||
        xkb_x11_setup_xkb_extension(connection, 1, 0, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr,
                                    &firstXkbEvent, nullptr) == 0) {
        return false;
    }
    root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    device = static_cast<std::uint16_t>(xkb_x11_get_core_keyboard_device_id(connection));
    context.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    const x11::Reply<xcb_test_get_version_reply_t> test(
        xcb_test_get_version_reply(connection, xcb_test_get_version(connection, 2, 2), nullptr));
    const x11::Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, ownKeysProperty.size(), ownKeysProperty.data()), nullptr));
    if (!context || !test || !atom) {
        return false;
    }
    ownKeys = atom->atom;
    added = LeftLayout(connection);
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t allParts = 0xFF;
    xcb_xkb_select_events(connection, device, events, 0, events, allParts, allParts, nullptr);
    return true;
}

/// What the keyboard is like right now: the user has other hands, and other programs change it too.
void Typist::State::Refresh() {
    const x11::Reply<xcb_xkb_get_state_reply_t> present(
        xcb_xkb_get_state_reply(connection, xcb_xkb_get_state(connection, device), nullptr));
    if (!present) {
        return;
    }
    while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        stale = stale || (event->response_type & 0x7F) == firstXkbEvent ||
                (event->response_type & 0x7F) == XCB_MAPPING_NOTIFY;
    }
    group = present->group;
    lockedGroup = present->lockedGroup;
    if (stale || lockedModifiers != present->lockedMods) {
        stale = false;
        lockedModifiers = present->lockedMods;
        ReadMeanings();
    }
}

void Typist::State::ReadMeanings() {
    meanings.clear();
    const std::unique_ptr<xkb_keymap, Free> map(xkb_x11_keymap_new_from_device(
        context.get(), connection, static_cast<std::int32_t>(device), XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!map) {
        return;
    }
    // The keys to hold are looked for among those that need none held.
    shiftKey = 0;
    level3Key = 0;
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts(map.get());
    for (xkb_layout_index_t layout = 0; layout < layouts; ++layout) {
        ReadMeaningsOf(map.get(), layout, 0);
    }
    const auto keyOf = [this](Symbol symbol) {
        const auto stroke = FindStroke(meanings, symbol, group);
        return stroke ? stroke->code : std::uint8_t{0};
    };
    shiftKey = keyOf(XKB_KEY_Shift_L);
    level3Key = keyOf(XKB_KEY_ISO_Level3_Shift);
    for (const unsigned modifiers : {withShift, withLevel3, withShift | withLevel3}) {
        if (((modifiers & withShift) != 0 && shiftKey == 0) || ((modifiers & withLevel3) != 0 && level3Key == 0)) {
            continue;
        }
        for (xkb_layout_index_t layout = 0; layout < layouts; ++layout) {
            ReadMeaningsOf(map.get(), layout, modifiers);
        }
    }
    ReadSpareKeys();
}

void Typist::State::ReadMeaningsOf(xkb_keymap* map, unsigned layout, unsigned modifiers) {
    const std::unique_ptr<xkb_state, Free> held(xkb_state_new(map));
    xkb_state_update_mask(held.get(), 0, 0, lockedModifiers, 0, 0, layout);
    if ((modifiers & withShift) != 0) {
        xkb_state_update_key(held.get(), shiftKey, XKB_KEY_DOWN);
    }
    if ((modifiers & withLevel3) != 0) {
        xkb_state_update_key(held.get(), level3Key, XKB_KEY_DOWN);
    }
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(map), 255);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(map); code <= last; ++code) {
        const xkb_layout_index_t own = xkb_state_key_get_layout(held.get(), code);
        const xkb_level_index_t level =
            own == XKB_LAYOUT_INVALID ? XKB_LEVEL_INVALID : xkb_state_key_get_level(held.get(), code, own);
        const xkb_keysym_t* symbols = nullptr;
        if (level != XKB_LEVEL_INVALID && xkb_keymap_key_get_syms_by_level(map, code, own, level, &symbols) == 1 &&
            !IsOfKeypad(symbols[0])) {
            meanings.push_back({{static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(layout), modifiers},
                                SymbolOfKey(symbols[0])});
        }
    }
}

std::vector<std::uint8_t> Typist::State::OwnKeys() const {
    const x11::Reply<xcb_get_property_reply_t> property(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, root, ownKeys, XCB_ATOM_CARDINAL, 0, 64), nullptr));
    if (!property || property->format != 8) {
        return {};
    }
    const auto* const codes = static_cast<const std::uint8_t*>(xcb_get_property_value(property.get()));
    return {codes, codes + xcb_get_property_value_length(property.get())};
}

void Typist::State::ReadSpareKeys() {
    const xcb_setup_t* const setup = xcb_get_setup(connection);
    const int first = setup->min_keycode;
    const int count = setup->max_keycode - first + 1;
    const x11::Reply<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        connection,
        xcb_get_keyboard_mapping(connection, static_cast<xcb_keycode_t>(first), static_cast<std::uint8_t>(count)),
        nullptr));
    if (!map) {
        return;
    }
    const std::vector<std::uint8_t> own = OwnKeys();
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    const int width = map->keysyms_per_keycode;
    std::vector<std::uint8_t> codes;
    // From above: up there lie keys that type nothing, and the types of those in between are not worth keeping.
    for (int i = count - 1; i >= 0; --i) {
        const xcb_keysym_t* const row = symbols + i * width;
        const auto code = static_cast<std::uint8_t>(first + i);
        const bool unused = std::all_of(row, row + width, [](xcb_keysym_t symbol) { return symbol == XCB_NO_SYMBOL; });
        const bool ours = std::find(own.begin(), own.end(), code) != own.end() && xkb_keysym_to_utf32(row[0]) != 0;
        if (unused || ours) {
            codes.push_back(code);
        }
    }
    // Those without a meaning come first.
    std::stable_partition(codes.begin(), codes.end(),
                          [&](std::uint8_t code) { return symbols[(code - first) * width] == XCB_NO_SYMBOL; });
    spare.SetCodes(std::move(codes));
}

/// In one request, since the window manager stands still for 70 ms at each.
void Typist::State::Bind(const std::vector<Binding>& bindings) {
    if (bindings.empty()) {
        return;
    }
    const auto [low, high] = std::minmax_element(bindings.begin(), bindings.end(),
                                                 [](const Binding& a, const Binding& b) { return a.code < b.code; });
    const std::uint8_t first = low->code;
    const auto count = static_cast<std::uint8_t>(high->code - first + 1);
    const x11::Reply<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, first, count), nullptr));
    if (!map || map->keysyms_per_keycode < 2) {
        return;
    }
    const std::size_t width = map->keysyms_per_keycode;
    xcb_keysym_t* const present = xcb_get_keyboard_mapping_keysyms(map.get());
    std::vector<xcb_keysym_t> symbols(present, present + count * width);
    for (const Binding& binding : bindings) {
        const auto row = symbols.begin() + static_cast<std::ptrdiff_t>((binding.code - first) * width);
        std::fill(row, row + static_cast<std::ptrdiff_t>(width), XCB_NO_SYMBOL);
        row[0] = binding.plain;
        row[1] = binding.shifted;
    }
    xcb_change_keyboard_mapping(connection, count, first, static_cast<std::uint8_t>(width), symbols.data());
    NoteOwnKeys(bindings);
    stale = true;
}

void Typist::State::NoteOwnKeys(const std::vector<Binding>& bindings) {
    std::vector<std::uint8_t> own = OwnKeys();
    for (const Binding& binding : bindings) {
        if (std::find(own.begin(), own.end(), binding.code) == own.end()) {
            own.push_back(binding.code);
        }
    }
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, root, ownKeys, XCB_ATOM_CARDINAL, 8,
                        static_cast<std::uint32_t>(own.size()), own.data());
}

/// A whole alphabet as a layout of its own, behind the user's: nothing is bound anew while it is typed.
void Typist::State::AddLatinLayout() {
    const auto present = PresentLayouts(connection);
    if (!present || static_cast<std::size_t>(std::count(present->layouts.begin(), present->layouts.end(), ',')) + 1 >=
                        mostLayouts) {
        return;
    }
    LayoutNames wanted = *present;
    const auto commas = [](const std::string& list) { return std::count(list.begin(), list.end(), ','); };
    wanted.variants.append(static_cast<std::size_t>(commas(wanted.layouts) - commas(wanted.variants)) + 1, ',');
    wanted.layouts += ',';
    wanted.layouts += latinLayout;
    NoteLayout(connection, AddedLayout{*present, wanted});
    if (UseLayouts(wanted)) {
        added = {*present, PresentLayouts(connection).value_or(wanted)};
        stale = true;
    }
    NoteLayout(connection, added);
}

void Typist::State::Play(const KeyStroke& stroke) {
    const bool otherGroup = stroke.group != group;
    if (otherGroup) {
        LockGroup(stroke.group);
    }
    std::array<std::uint8_t, 3> keys{};
    std::size_t held = 0;
    if ((stroke.modifiers & withShift) != 0) {
        keys[held++] = shiftKey;
    }
    if ((stroke.modifiers & withLevel3) != 0) {
        keys[held++] = level3Key;
    }
    keys[held++] = stroke.code;
    for (std::size_t i = 0; i < held; ++i) {
        Fake(XCB_KEY_PRESS, keys[i]);
    }
    for (std::size_t i = held; i > 0; --i) {
        Fake(XCB_KEY_RELEASE, keys[i - 1]);
    }
    if (otherGroup) {
        LockGroup(lockedGroup);
    }
    // All of it at once: nothing stays down if this process ends here.
    xcb_flush(connection);
    spare.Used(stroke.code);
}

Typist::Typist() : state(std::make_unique<State>()) {
    if (!state->Open()) {
        xcb_disconnect(state->connection);
        state->connection = nullptr;
    }
}

Typist::~Typist() {
    if (state->connection == nullptr) {
        return;
    }
    // Only what is still as we left it: since then the user may have chosen others.
    if (state->added && PresentLayouts(state->connection) == state->added->ours) {
        std::this_thread::sleep_for(beforeLayoutsGoBack);
        UseLayouts(state->added->users);
        NoteLayout(state->connection, std::nullopt);
    }
    xcb_disconnect(state->connection);
}

void Typist::ReleaseAll() {
    if (state->connection == nullptr) {
        return;
    }
    const x11::Reply<xcb_query_keymap_reply_t> down(
        xcb_query_keymap_reply(state->connection, xcb_query_keymap(state->connection), nullptr));
    for (unsigned code = 8; down && code < 256; ++code) {
        if ((down->keys[code / 8] >> (code % 8) & 1U) != 0) {
            state->Fake(XCB_KEY_RELEASE, static_cast<std::uint8_t>(code));
        }
    }
    xcb_flush(state->connection);
}

void Typist::Prepare(std::u32string_view characters) {
    if (state->connection == nullptr) {
        return;
    }
    state->Refresh();
    if (MissingKeys(characters, state->meanings) > state->spare.Count()) {
        state->AddLatinLayout();
        state->Refresh();
    }
    state->Bind(state->spare.Bind(characters, state->meanings));
    xcb_flush(state->connection);
}

void Typist::Type(char32_t character) {
    if (state->connection == nullptr) {
        return;
    }
    state->Refresh();
    const Symbol symbol = SymbolOf(character);
    auto stroke = FindStroke(state->meanings, symbol, state->group);
    if (!stroke) {
        state->Bind(state->spare.Bind(std::u32string_view(&character, 1), state->meanings));
        state->Refresh();
        stroke = FindStroke(state->meanings, symbol, state->group);
    }
    if (stroke) {
        state->Play(*stroke);
    }
}

void Typist::Strike(Symbol symbol) {
    if (state->connection == nullptr) {
        return;
    }
    state->Refresh();
    if (const auto stroke = FindStroke(state->meanings, symbol, state->group)) {
        state->Play(*stroke);
    }
}

}  // namespace zvr::osk
