#include "core/program.h"
#include "media/dvdplayer.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "system/devices.h"

namespace zvr {

void MediaPlayer::LoadAudioCd() {
    const std::string& letter = program.dvdplayer.driveLetter;
    if (letter.empty()) {
        return;
    }
    const Profile devices = Profile::Load(DevicesFile(program.place.folder));
    const std::string path = DiscPath(devices, letter, program.platform.discs.DriveDevices());
    if (path.empty()) {
        return;
    }
    program.platform.discs.Look(path, discWanted.Guard([this](const Disc& disc) { PlayDisc(disc); }));
}

void MediaPlayer::PlayDisc(const Disc& disc) {
    if (disc.kind == DiscKind::video) {
        program.dispatchCommand("dvdplayer.show");
        program.dispatchCommand("dvdplayer.play");
    } else if (disc.kind == DiscKind::audio) {
        wmp.NewPlaylist();
        for (const DiscTrack& track : disc.tracks) {
            wmp.AppendItem(track.Address(), track.seconds);
        }
        program.dispatchCommand("mediaplayer.show");
        PerformPlay();
    }
}

}  // namespace zvr
