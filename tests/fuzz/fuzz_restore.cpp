#include "media/playerstate.h"
#include "support/minimal.h"

#include <algorithm>
#include <cstdlib>

// Any bytes may stand in the state file. The player comes out of it unmuted, and either the file was used up or
// nothing plays.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const auto bench = zvr::RunningBench();
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::string joined;
    for (const std::string& line : zvr::StateLines(text)) {
        joined += line + "\r\n";
    }
    bench->folder.Write("restore.dat", text);
    zvr::MediaPlayer& player = bench->program->mediaplayer;
    player.PerformMediaplayerStateRestore();
    const bool usedUp = !bench->folder.Has("restore.dat");
    const bool plays = player.wmp.CurrentState() == zvr::PlayState::playing;
    if (joined != text + "\r\n" || player.wmp.Mute() || (plays && !usedUp) || player.wmp.CurrentPosition() < 0) {
        std::abort();
    }
    player.Stop();
    player.wmp.NewPlaylist();
    player.fadeInVolume = 0;
    return 0;
}
