#include "platform/common/discimage.h"
#include "system/devices.h"

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>

using namespace zvr;

// Any devices.ini, .cue file, track address or image: a path is absolute or none, an address is read back as it was
// written, no track lasts less than nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const Profile devices = Profile::Parse(input);
    for (int i = 0; i < 14; ++i) {
        const std::string letter{static_cast<char>('a' + i), ':'};
        const std::string path = DiscPath(devices, letter, {"/dev/sr0"});
        if (!path.empty() && path.front() != '/') {
            std::abort();
        }
    }
    const CueSheet sheet = ReadCue(input);
    for (const DiscTrack& track : DiscOfToc(input, sheet.entries, static_cast<long>(size)).tracks) {
        const auto again = TrackOf(track.Address());
        if (track.seconds < 0 || !again || again->disc != input || again->number != track.number) {
            std::abort();
        }
    }
    if (const auto track = TrackOf(input); track && TrackOf(track->Address())->disc != track->disc) {
        std::abort();
    }
    static const std::string image = std::string(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") +
                                     "/zvr-fuzz-devices-" + std::to_string(std::random_device{}());
    if (size >= 2 && (data[0] & 3U) == 0) {
        // The bytes as the descriptor of a disc whose first folder lies right behind it.
        std::ofstream(image, std::ios::binary) << std::string(16 * 2048, '\0') + "\1CD001" + input;
        (void)HoldsVideo(image);
    }
    return 0;
}
