#include "contract/sound.h"

#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"

namespace zvr::contract {

void RequireSound() {}

std::string Medium(MediaControl& media, const std::string& name) {
    const std::string address = "/media/" + name;
    MediaControl::State& player = *media.state;
    player.durations[address] = name == "odd name #1 100% caf\xE9.wav" ? 1 : name == "short.wav" ? 0.3 : 4;
    if (name == "tagged.mp3") {
        player.titles[address] = "Tone with a title";
    }
    if (name == "tagged.flac") {
        player.titles[address] = "Ein längerer Ton";
    }
    if (name == "moving.avi") {
        player.durations[address] = 2;
        player.videos.insert(address);
    }
    for (const char* broken : {"missing.mp3", "garbage.mp3", "empty.mp3", "folder.mp3", "header.wav", "cut.mp4"}) {
        if (name == broken) {
            player.broken.insert(address);
        }
    }
    return address;
}

void TellLength(MediaControl& media, const std::string& address, double seconds) {
    media.state->durations[address] = seconds;
}

void PrepareMixer(Mixer& mixer) {
    mixer.state->lines.erase(MixerLine::cd);
}

void ChangeFromOutside(Mixer& mixer, int percent) {
    const auto level = static_cast<std::uint32_t>(65535 * percent / 100);
    mixer.state->waveLevel = (level << 16U) + level;
}

}  // namespace zvr::contract
