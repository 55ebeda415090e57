#include "platform/discs.h"

#include "platform/common/discimage.h"
#include "platform/lifetime.h"
#include "platform/linux/discdrive.h"
#include "platform/linux/worker.h"

#include <algorithm>
#include <filesystem>
#include <mutex>

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
    /// Where an answer goes; shared with the thread, which may outlive the rest in a drive that hangs.
    struct Mailbox {
        std::mutex mutex;
        EventLoop* loop = nullptr;  ///< null: nobody waits any more
    };

    std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>();
    Lifetime lifetime;
    bool looking = false;
    std::unique_ptr<Worker> worker;  ///< made when it is first needed
};

Discs::Discs(EventLoop& loop) : state(std::make_unique<State>()) {
    state->mailbox->loop = &loop;
}

Discs::~Discs() {
    const std::lock_guard lock(state->mailbox->mutex);
    state->mailbox->loop = nullptr;
}

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
    if (state->looking) {
        return;
    }
    state->looking = true;
    if (!state->worker) {
        state->worker = std::make_unique<Worker>();
    }
    auto tell = state->lifetime.Guard([own = state.get(), done = std::move(done)](const Disc& disc) {
        own->looking = false;
        done(disc);
    });
    state->worker->Do([path, mailbox = state->mailbox, tell = std::move(tell)] {
        Disc disc = DiscIn(path);
        const std::lock_guard lock(mailbox->mutex);
        if (mailbox->loop != nullptr) {
            mailbox->loop->Post([tell, disc = std::move(disc)] { tell(disc); });
        }
    });
}

}  // namespace zvr
