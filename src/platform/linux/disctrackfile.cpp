#include "platform/linux/disctrackfile.h"

#include <algorithm>
#include <cmath>

#include <fcntl.h>
#include <unistd.h>

namespace zvr {
namespace {

constexpr long sectorsInABlock = 24;
constexpr std::size_t blockSize = sectorsInABlock * soundSectorSize;

/// Of a wave file of two channels of 16 bits at 44.1 kHz.
std::vector<unsigned char> WaveHead(std::uint32_t soundBytes) {
    std::string head;
    const auto addNumber = [&head](std::uint32_t number, int bytes) {
        for (int i = 0; i < bytes; ++i) {
            head += static_cast<char>(number >> (8 * i));
        }
    };
    constexpr std::uint32_t rate = 44100;
    constexpr std::uint32_t frame = 4;
    head += "RIFF";
    addNumber(soundBytes + 36, 4);
    head += "WAVEfmt ";
    addNumber(16, 4);
    addNumber(1, 2);  // as it is, not compressed
    addNumber(2, 2);
    addNumber(rate, 4);
    addNumber(rate * frame, 4);
    addNumber(frame, 2);
    addNumber(16, 2);
    head += "data";
    addNumber(soundBytes, 4);
    return {head.begin(), head.end()};
}

}  // namespace

DiscTrackFile::DiscTrackFile(const DiscTrack& track)
    : firstSector(track.firstSector),
      sectors(std::lround(track.seconds * sectorsASecond)),
      head(WaveHead(static_cast<std::uint32_t>(sectors * static_cast<long>(soundSectorSize)))) {}

DiscTrackFile::~DiscTrackFile() {
    if (image >= 0) {
        close(image);
    }
}

std::unique_ptr<DiscTrackFile> DiscTrackFile::Open(const DiscTrack& address) {
    std::unique_ptr<DiscDrive> drive;
    if (DiscDrive::IsDevice(address.disc)) {
        drive = std::make_unique<DiscDrive>(address.disc);
        if (!drive->WaitForDisc()) {
            return nullptr;
        }
    }
    const Disc disc = drive ? drive->Contents() : DiscOfPath(address.disc);
    const auto track = std::find_if(disc.tracks.begin(), disc.tracks.end(),
                                    [&address](const DiscTrack& t) { return t.number == address.number; });
    if (track == disc.tracks.end()) {
        return nullptr;
    }
    std::unique_ptr<DiscTrackFile> file(new DiscTrackFile(*track));
    file->drive = std::move(drive);
    if (!file->drive) {
        file->image = open(ImageOfCue(address.disc).c_str(), O_RDONLY | O_CLOEXEC);
        if (file->image < 0) {
            return nullptr;
        }
    }
    return file;
}

std::uint64_t DiscTrackFile::Size() const {
    return head.size() + static_cast<std::uint64_t>(sectors) * soundSectorSize;
}

bool DiscTrackFile::Seek(std::uint64_t newPlace) {
    place = std::min(newPlace, Size());
    return place == newPlace;
}

bool DiscTrackFile::ReadImage(long first, int count, unsigned char* sound) const {
    const std::size_t length = static_cast<std::size_t>(count) * soundSectorSize;
    const auto offset = static_cast<off_t>(first) * static_cast<off_t>(soundSectorSize);
    std::size_t done = 0;
    while (done < length) {
        const ssize_t got = pread(image, sound + done, length - done, offset + static_cast<off_t>(done));
        if (got <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(got);
    }
    return true;
}

bool DiscTrackFile::LoadBlock(long number) {
    if (number == loadedBlock) {
        return true;
    }
    loadedBlock = -1;
    const long first = number * sectorsInABlock;
    const auto count = static_cast<int>(std::min(sectorsInABlock, sectors - first));
    block.resize(static_cast<std::size_t>(count) * soundSectorSize);
    const bool read = drive ? drive->ReadSound(firstSector + first, count, block.data())
                            : ReadImage(firstSector + first, count, block.data());
    loadedBlock = read ? number : -1;
    return read;
}

std::ptrdiff_t DiscTrackFile::Read(unsigned char* bytes, std::size_t length) {
    const std::vector<unsigned char>* source = &head;
    std::size_t offset = static_cast<std::size_t>(place);
    if (place >= Size()) {
        return 0;
    }
    if (place >= head.size()) {
        const std::uint64_t inSound = place - head.size();
        if (!LoadBlock(static_cast<long>(inSound / blockSize))) {
            return -1;
        }
        source = &block;
        offset = static_cast<std::size_t>(inSound % blockSize);
    }
    const std::size_t count = std::min(length, source->size() - offset);
    std::copy_n(source->begin() + static_cast<std::ptrdiff_t>(offset), count, bytes);
    place += count;
    return static_cast<std::ptrdiff_t>(count);
}

}  // namespace zvr
