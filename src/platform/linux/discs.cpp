#include "platform/discs.h"

#include "platform/common/discimage.h"
#include "platform/lifetime.h"
#include "platform/linux/discdrive.h"
#include "platform/linux/worker.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
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
    /// Where an answer goes; shared with the thread, which may outlive the rest in a drive that hangs.
    struct Mailbox {
        std::mutex mutex;
        EventLoop* loop = nullptr;  ///< null: nobody waits any more
    };

    std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>();
    Lifetime lifetime;
    bool looking = false;
    std::string wanted;  ///< the path of the last call
    std::function<void(const Disc&)> done;
    std::unique_ptr<Worker> worker;  ///< made when it is first needed

    void Begin();
    void Answer(const std::string& path, const Disc& disc);
};

void Discs::State::Begin() {
    looking = true;
    if (!worker) {
        worker = std::make_unique<Worker>();
    }
    auto tell = lifetime.Guard([this, path = wanted](const Disc& disc) { Answer(path, disc); });
    worker->Do([path = wanted, mailbox = mailbox, tell = std::move(tell)] {
        Disc disc = DiscIn(path);
        const std::lock_guard lock(mailbox->mutex);
        if (mailbox->loop != nullptr) {
            mailbox->loop->Post([tell, disc = std::move(disc)] { tell(disc); });
        }
    });
}

void Discs::State::Answer(const std::string& path, const Disc& disc) {
    looking = false;
    if (path != wanted) {
        return Begin();
    }
    const auto asker = std::exchange(done, nullptr);
    asker(disc);
}

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
    state->wanted = path;
    state->done = std::move(done);
    if (!state->looking) {
        state->Begin();
    }
}

}  // namespace zvr
