#include "watch.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

namespace skincheck {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds between{200};

/// Another number for each state of the folder's files. Whoever saves writes twice as often as not: what counts is a
/// state that two looks have in common.
std::uint64_t StateOf(const fs::path& folder) {
    std::uint64_t state = 0;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code gone;
        const auto time = static_cast<std::uint64_t>(at->last_write_time(gone).time_since_epoch().count());
        // A sum, since folders are listed in any order.
        state += std::hash<std::string>{}(at->path().string()) ^ (time * 0x9E3779B97F4A7C15U);
    }
    return state;
}

}  // namespace

void Watch(const fs::path& folder, const std::function<void()>& changed) {
    std::uint64_t told = 0;
    std::uint64_t before = StateOf(folder);
    for (bool first = true;; std::this_thread::sleep_for(between)) {
        const std::uint64_t now = StateOf(folder);
        if (first || (now == before && now != told)) {
            told = now;
            first = false;
            changed();
        }
        before = now;
    }
}

}  // namespace skincheck
