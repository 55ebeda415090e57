#include "platform/display.h"

#include "platform/linux/x11.h"
#include "platform/log.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace zvr {
namespace {

using Table = std::vector<std::uint16_t>;

using x11::Reply;

/// The same curve with another number of entries.
Table Resampled(const std::uint16_t* table, std::size_t from, std::size_t to) {
    Table result(to);
    for (std::size_t i = 0; i < to; ++i) {
        const double place = to > 1 ? static_cast<double>(i * (from - 1)) / static_cast<double>(to - 1) : 0;
        const auto below = static_cast<std::size_t>(place);
        const std::size_t above = std::min(below + 1, from - 1);
        const double share = place - static_cast<double>(below);
        result[i] = static_cast<std::uint16_t>(table[below] * (1 - share) + table[above] * share + 0.5);
    }
    return result;
}

GammaRamp StraightLine() {
    GammaRamp ramp{};
    for (auto& colour : ramp) {
        for (std::size_t i = 0; i < colour.size(); ++i) {
            colour[i] = static_cast<std::uint16_t>(i * 257);
        }
    }
    return ramp;
}

}  // namespace

struct Display::State {
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = 0;

    ~State() {
        if (connection != nullptr) {
            xcb_disconnect(connection);
        }
    }

    bool Connect();
    [[nodiscard]] std::vector<xcb_randr_crtc_t> ActiveOutputs();
    [[nodiscard]] std::size_t TableSize(xcb_randr_crtc_t output);
    [[nodiscard]] std::optional<GammaRamp> Read(xcb_randr_crtc_t output);
};

bool Display::State::Connect() {
    if (connection == nullptr) {
        int number = 0;
        connection = xcb_connect(nullptr, &number);
        if (xcb_connection_has_error(connection) == 0) {
            auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
            for (; number > 0 && screens.rem > 1; --number) {
                xcb_screen_next(&screens);
            }
            root = screens.data->root;
        }
    }
    if (xcb_connection_has_error(connection) != 0) {
        return false;
    }
    const auto* extension = xcb_get_extension_data(connection, &xcb_randr_id);
    return extension != nullptr && extension->present != 0;
}

std::vector<xcb_randr_crtc_t> Display::State::ActiveOutputs() {
    std::vector<xcb_randr_crtc_t> active;
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(xcb_randr_get_screen_resources_current_reply(
        connection, xcb_randr_get_screen_resources_current(connection, root), nullptr));
    if (!resources) {
        return active;
    }
    const xcb_randr_crtc_t* outputs = xcb_randr_get_screen_resources_current_crtcs(resources.get());
    const int count = xcb_randr_get_screen_resources_current_crtcs_length(resources.get());
    for (int i = 0; i < count; ++i) {
        const Reply<xcb_randr_get_crtc_info_reply_t> information(xcb_randr_get_crtc_info_reply(
            connection, xcb_randr_get_crtc_info(connection, outputs[i], resources->config_timestamp), nullptr));
        if (information && information->mode != 0) {
            active.push_back(outputs[i]);
        }
    }
    return active;
}

std::size_t Display::State::TableSize(xcb_randr_crtc_t output) {
    const Reply<xcb_randr_get_crtc_gamma_size_reply_t> size(
        xcb_randr_get_crtc_gamma_size_reply(connection, xcb_randr_get_crtc_gamma_size(connection, output), nullptr));
    return size ? size->size : 0;
}

std::optional<GammaRamp> Display::State::Read(xcb_randr_crtc_t output) {
    const Reply<xcb_randr_get_crtc_gamma_reply_t> tables(
        xcb_randr_get_crtc_gamma_reply(connection, xcb_randr_get_crtc_gamma(connection, output), nullptr));
    if (!tables || tables->size == 0) {
        return std::nullopt;
    }
    const std::array<const std::uint16_t*, 3> colours{xcb_randr_get_crtc_gamma_red(tables.get()),
                                                      xcb_randr_get_crtc_gamma_green(tables.get()),
                                                      xcb_randr_get_crtc_gamma_blue(tables.get())};
    GammaRamp ramp{};
    bool black = true;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        const Table table = Resampled(colours[i], tables->size, ramp[i].size());
        std::copy(table.begin(), table.end(), ramp[i].begin());
        black = black && std::all_of(table.begin(), table.end(), [](std::uint16_t level) { return level == 0; });
    }
    // Some servers begin with zeros and show a picture all the same.
    return black ? StraightLine() : ramp;
}

Display::Display() : state(std::make_unique<State>()) {}
Display::~Display() = default;

std::optional<GammaRamp> Display::Ramp() const {
    if (state->Connect()) {
        for (const xcb_randr_crtc_t output : state->ActiveOutputs()) {
            if (const auto ramp = state->Read(output)) {
                return ramp;
            }
        }
    }
    return std::nullopt;
}

void Display::SetRamp(const GammaRamp& ramp) {
    if (!state->Connect()) {
        return;
    }
    for (const xcb_randr_crtc_t output : state->ActiveOutputs()) {
        const std::size_t size = state->TableSize(output);
        if (size == 0) {
            continue;
        }
        std::array<Table, 3> tables;
        for (std::size_t i = 0; i < tables.size(); ++i) {
            tables[i] = Resampled(ramp[i].data(), ramp[i].size(), size);
        }
        const auto request =
            xcb_randr_set_crtc_gamma_checked(state->connection, output, static_cast<std::uint16_t>(size),
                                             tables[0].data(), tables[1].data(), tables[2].data());
        // Waits until the server has it.
        if (const Reply<xcb_generic_error_t> error(xcb_request_check(state->connection, request)); error) {
            Log::Warning("the display refuses its brightness: X error {}", error->error_code);
        }
    }
}

}  // namespace zvr
