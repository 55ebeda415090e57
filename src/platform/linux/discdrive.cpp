#include "platform/linux/discdrive.h"

#include "platform/log.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zvr {

bool DiscDrive::IsDevice(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_block_file(path, error);
}

DiscDrive::DiscDrive(const std::string& path)
    : path(path), file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
    if (file < 0) {
        Log::Warning("the drive {} can't be opened: {}", path, std::strerror(errno));
    }
}

DiscDrive::~DiscDrive() {
    if (file >= 0) {
        close(file);
    }
}

bool DiscDrive::WaitForDisc() const {
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
    const bool ready = file >= 0 && (status == CDS_DISC_OK || status == CDS_NO_INFO);
    if (file >= 0 && !ready) {
        Log::Note("no disc is ready in the drive {}", path);
    }
    return ready;
}

bool DiscDrive::Eject() const {
    return file >= 0 && ioctl(file, CDROMEJECT, 0) == 0;
}

/// None for a track that isn't there.
std::optional<TocEntry> DiscDrive::Entry(int track) const {
    cdrom_tocentry entry{};
    entry.cdte_track = static_cast<unsigned char>(track);
    entry.cdte_format = CDROM_LBA;
    if (ioctl(file, CDROMREADTOCENTRY, &entry) != 0) {
        return std::nullopt;
    }
    return TocEntry{entry.cdte_addr.lba, (entry.cdte_ctrl & CDROM_DATA_TRACK) == 0};
}

Disc DiscDrive::Contents() const {
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

bool DiscDrive::ReadSectors(long firstSector, int sectors, unsigned char* sound) const {
    cdrom_read_audio request{};
    request.addr.lba = static_cast<int>(firstSector);
    request.addr_format = CDROM_LBA;
    request.nframes = sectors;
    request.buf = sound;
    return ioctl(file, CDROMREADAUDIO, &request) == 0;
}

bool DiscDrive::ReadSound(long firstSector, int sectors, unsigned char* sound) const {
    if (ReadSectors(firstSector, sectors, sound)) {
        return true;
    }
    for (int i = 0; i < sectors; ++i) {
        unsigned char* const sector = sound + static_cast<std::size_t>(i) * soundSectorSize;
        if (!ReadSectors(firstSector + i, 1, sector)) {
            const int error = errno;
            Log::Warning("the disc in {} has sectors that can't be read: {}", path, std::strerror(error));
            if (error != EIO) {
                return false;
            }
            std::fill_n(sector, soundSectorSize, static_cast<unsigned char>(0));
        }
    }
    return true;
}

}  // namespace zvr
