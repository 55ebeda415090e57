#pragma once

#include "platform/eventloop.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// One track of an audio CD. Its address, "cdda:///dev/sr0#3", is what the player plays and what lists keep.
struct DiscTrack {
    std::string disc;  ///< device or .cue file
    int number = 0;    ///< from 1 on, in the disc's order
    double seconds = 0;
    long firstSector = 0;  ///< on the disc

    [[nodiscard]] std::string Address() const;
    [[nodiscard]] std::string Name() const;  ///< "Track 3"
};
/// Of an address as above, without its place and length; none for any other text.
[[nodiscard]] std::optional<DiscTrack> TrackOf(std::string_view address);

enum class DiscKind { none, audio, video };
struct Disc {
    DiscKind kind = DiscKind::none;  ///< none: nothing in the drive, or nothing that can be played
    std::vector<DiscTrack> tracks;   ///< of an audio CD; its data tracks are left out
};

/// The optical drives, and what lies in them.
class Discs {
public:
    explicit Discs(EventLoop& loop);
    ~Discs();
    Discs(const Discs&) = delete;
    Discs& operator=(const Discs&) = delete;

    [[nodiscard]] std::vector<std::string> DriveDevices() const;  ///< in the kernel's order

    /// Looks into a drive's device, a disc image (.cue, .iso) or a disc's folder, and calls `done` from the event loop.
    /// A drive that spins up takes its time, 20 seconds at most; a further call meanwhile takes the place of this one,
    /// and a drive that both want is not disturbed.
    void Look(const std::string& path, std::function<void(const Disc&)> done);

    /// Opens the tray of a drive's device. Nothing else can be ejected: the log says so. Doesn't wait for it.
    void Eject(const std::string& device);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
