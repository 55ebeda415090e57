#pragma once

#include "platform/linux/discdrive.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zvr {

/// A track of a disc, read as the wave file that it would be. The engine's own reader of discs loses the first quarter
/// second of each track: it sends its first block ahead of the clock that dates it, and so it comes too late.
class DiscTrackFile {
public:
    /// Of the address' disc and number. Null: there is no such track. May wait for the drive.
    [[nodiscard]] static std::unique_ptr<DiscTrackFile> Open(const DiscTrack& address);
    ~DiscTrackFile();
    DiscTrackFile(const DiscTrackFile&) = delete;
    DiscTrackFile& operator=(const DiscTrackFile&) = delete;

    [[nodiscard]] std::uint64_t Size() const;  ///< bytes
    /// Up to `length` bytes from where the last read ended: their number, 0 at the end, -1 when the disc is gone.
    [[nodiscard]] std::ptrdiff_t Read(unsigned char* bytes, std::size_t length);
    [[nodiscard]] bool Seek(std::uint64_t newPlace);

private:
    explicit DiscTrackFile(const DiscTrack& track);
    [[nodiscard]] bool LoadBlock(long block);
    [[nodiscard]] bool ReadImage(long firstSector, int count, unsigned char* sound) const;

    long firstSector;
    long sectors;
    std::unique_ptr<DiscDrive> drive;  ///< null: the sound comes out of the image
    int image = -1;
    std::uint64_t place = 0;
    std::vector<unsigned char> head;   ///< of the wave file
    std::vector<unsigned char> block;  ///< some sectors
    long loadedBlock = -1;
};

}  // namespace zvr
