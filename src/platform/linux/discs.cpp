#include "platform/discs.h"

#include "platform/background.h"
#include "platform/common/discimage.h"
#include "platform/lifetime.h"
#include "platform/linux/discdrive.h"
#include "platform/log.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <utility>

namespace zvr {
namespace {

Disc DiscIn(const std::string& path) {
    if (!DiscDrive::IsDevice(path)) {
        return DiscOfPath(path);
    }
    const DiscDrive drive(path);
    if (!drive.WaitForDisc()) {
        return {};
    }
    return HoldsVideo(path) ? Disc{DiscKind::video, {}} : drive.Contents();
}

/// Of "sr3", 3; none for another name.
std::optional<int> DriveNumber(const std::string& name) {
    const bool isDrive = name.size() > 2 && name.size() < 6 && name.starts_with("sr") &&
                         name.find_first_not_of("0123456789", 2) == name.npos;
    return isDrive ? std::optional(std::stoi(name.substr(2))) : std::nullopt;
}

}  // namespace

struct Discs::State {
    Background background;
    Lifetime lifetime{};
    bool looking = false;
    std::string wanted{};  ///< the path of the last call
    std::function<void(const Disc&)> done{};

    void Begin();
    void Answer(const std::string& path, const Disc& disc);
};

void Discs::State::Begin() {
    looking = true;
    const auto disc = std::make_shared<Disc>();
    background.Do([path = wanted, disc] { *disc = DiscIn(path); },
                  lifetime.Guard([this, path = wanted, disc] { Answer(path, *disc); }));
}

void Discs::State::Answer(const std::string& path, const Disc& disc) {
    looking = false;
    if (path != wanted) {
        return Begin();
    }
    const auto asker = std::exchange(done, nullptr);
    asker(disc);
}

Discs::Discs(EventLoop& loop) : state(new State{Background(loop)}) {}
Discs::~Discs() = default;

std::vector<std::string> Discs::DriveDevices() const {
    std::vector<int> numbers;
    std::error_code error;
    for (auto entry = std::filesystem::directory_iterator("/sys/block", error);
         !error && entry != std::filesystem::directory_iterator{}; entry.increment(error)) {
        if (const auto number = DriveNumber(entry->path().filename().string())) {
            numbers.push_back(*number);
        }
    }
    std::sort(numbers.begin(), numbers.end());
    std::vector<std::string> devices;
    for (const int number : numbers) {
        devices.push_back("/dev/sr" + std::to_string(number));
    }
    return devices;
}

void Discs::Look(const std::string& path, std::function<void(const Disc&)> done) {
    state->wanted = path;
    state->done = std::move(done);
    if (!state->looking) {
        state->Begin();
    }
}

void Discs::Eject(const std::string& device) {
    state->background.Do(
        [device] {
            if (!DiscDrive::IsDevice(device) || !DiscDrive(device).Eject()) {
                Log::Warning("{} can't be ejected", device);
            }
        },
        [] {});
}

}  // namespace zvr
