#pragma once

#include "platform/common/discimage.h"

#include <optional>
#include <string>

namespace zvr {

/// The device of an optical drive.
class DiscDrive {
public:
    [[nodiscard]] static bool IsDevice(const std::string& path);

    /// Opens without a disc in it, too: the tray's state is asked for afterwards.
    explicit DiscDrive(const std::string& path);
    ~DiscDrive();
    DiscDrive(const DiscDrive&) = delete;
    DiscDrive& operator=(const DiscDrive&) = delete;

    /// 20 seconds at most. False for an open or empty tray, and for what is no drive.
    [[nodiscard]] bool WaitForDisc() const;
    [[nodiscard]] bool Eject() const;
    [[nodiscard]] Disc Contents() const;  ///< by its table of contents, so never a film
    /// `sound` has room for them. A scratch is silence; false when the disc is gone.
    [[nodiscard]] bool ReadSound(long firstSector, int sectors, unsigned char* sound) const;

private:
    [[nodiscard]] std::optional<TocEntry> Entry(int track) const;
    [[nodiscard]] bool ReadSectors(long firstSector, int sectors, unsigned char* sound) const;

    std::string path;
    int file;
};

}  // namespace zvr
