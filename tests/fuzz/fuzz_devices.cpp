#include "target.h"

#include "platform/common/discimage.h"
#include "system/devices.h"

#include <fstream>
#include <random>

using namespace zvr;

// Any devices.ini, .cue file, track address or image: a path is absolute or none, an address is read back as it was
// written, no track lasts less than nothing.
void zvr::Try(std::string_view input) {
    const std::string file(input);
    const Profile devices = Profile::Parse(input);
    for (int i = 0; i < 14; ++i) {
        const std::string letter{static_cast<char>('a' + i), ':'};
        const std::string path = DiscPath(devices, letter, {"/dev/sr0"});
        Require(path.empty() || path.front() == '/');
    }
    const CueSheet sheet = ReadCue(input);
    for (const DiscTrack& track : DiscOfToc(file, sheet.entries, static_cast<long>(file.size())).tracks) {
        const auto again = TrackOf(track.Address());
        Require(track.seconds >= 0 && again && again->disc == file && again->number == track.number);
    }
    const auto track = TrackOf(file);
    Require(!track || TrackOf(track->Address())->disc == track->disc);
    static const std::string image = std::string(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") +
                                     "/zvr-fuzz-devices-" + std::to_string(std::random_device{}());
    if (file.size() >= 2 && FirstByte(input) % 4 == 0) {
        // The bytes as the descriptor of a disc whose first folder lies right behind it.
        std::ofstream(image, std::ios::binary) << std::string(16 * 2048, '\0') + "\1CD001" + file;
        (void)HoldsVideo(image);
    }
}
