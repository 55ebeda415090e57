#include "platform/discs.h"

#include "platform/common/discimage.h"
#include "platform/linux/worker.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <mutex>
#include <thread>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zvr {
namespace {

/// Opens without a disc in it, too: the tray's state is asked for afterwards.
class DriveFile {
public:
    explicit DriveFile(const std::string& path) : file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~DriveFile() {
        if (file >= 0) {
            close(file);
        }
    }
    DriveFile(const DriveFile&) = delete;
    DriveFile& operator=(const DriveFile&) = delete;

    /// False for an open or empty tray, and for what is no drive.
    [[nodiscard]] bool WaitForDisc() const {
        constexpr int longestWait = 20;  // seconds
        constexpr int looksASecond = 4;
        int status = CDS_DRIVE_NOT_READY;
        for (int i = 0; file >= 0 && i < longestWait * looksASecond; ++i) {
            status = ioctl(file, CDROM_DRIVE_STATUS, CDSL_CURRENT);
            if (status != CDS_DRIVE_NOT_READY) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1000 / looksASecond));
        }
        return file >= 0 && (status == CDS_DISC_OK || status == CDS_NO_INFO);
    }

    /// None for a track that isn't there.
    [[nodiscard]] std::optional<TocEntry> Entry(int track) const {
        cdrom_tocentry entry{};
        entry.cdte_track = static_cast<unsigned char>(track);
        entry.cdte_format = CDROM_LBA;
        if (ioctl(file, CDROMREADTOCENTRY, &entry) != 0) {
            return std::nullopt;
        }
        return TocEntry{entry.cdte_addr.lba, (entry.cdte_ctrl & CDROM_DATA_TRACK) == 0};
    }

    [[nodiscard]] Disc Contents(const std::string& path) const {
        cdrom_tochdr header{};
        const auto leadOut = Entry(CDROM_LEADOUT);
        if (ioctl(file, CDROMREADTOCHDR, &header) != 0 || !leadOut) {
            return {};
        }
        std::vector<TocEntry> entries;
        for (int track = header.cdth_trk0; track <= header.cdth_trk1; ++track) {
            if (const auto entry = Entry(track)) {
                entries.push_back(*entry);
            }
        }
        return DiscOfToc(path, entries, leadOut->firstSector);
    }

private:
    int file;
};

Disc DiscOfDevice(const std::string& path) {
    const DriveFile drive(path);
    if (!drive.WaitForDisc()) {
        return {};
    }
    if (HoldsVideo(path)) {
        return {DiscKind::video, {}};
    }
    return drive.Contents(path);
}

Disc DiscIn(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_block_file(path, error) ? DiscOfDevice(path) : DiscOfPath(path);
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
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
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
    auto tell = [own = state.get(), token = std::weak_ptr<bool>(state->alive),
                 done = std::move(done)](const Disc& disc) {
        if (token.lock()) {
            own->looking = false;
            done(disc);
        }
    };
    state->worker->Do([path, mailbox = state->mailbox, tell = std::move(tell)] {
        Disc disc = DiscIn(path);
        const std::lock_guard lock(mailbox->mutex);
        if (mailbox->loop != nullptr) {
            mailbox->loop->Post([tell, disc = std::move(disc)] { tell(disc); });
        }
    });
}

}  // namespace zvr
