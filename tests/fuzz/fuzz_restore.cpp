#include "media/journal.h"
#include "media/playerstate.h"
#include "support/bench.h"

#include <algorithm>
#include <cstdlib>

using namespace zvr;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// At rest: without ticks a second of waiting is one step of virtual time.
std::unique_ptr<Bench> RestingBench() {
    auto bench = std::make_unique<Bench>();
    bench->Start();
    bench->program->mediaplayer.journal.End();
    bench->program->godfather.tmrGlobal.Stop();
    return bench;
}

std::vector<std::string> Items(const std::vector<std::string>& lines) {
    std::vector<std::string> items(lines.begin() + 3, lines.end());
    std::erase(items, "");
    return items;
}

void RequireQueue(const PlayQueue& queue, const std::vector<std::string>& items) {
    Require(queue.Count() == static_cast<int>(items.size()));
    for (int i = 0; i < queue.Count(); ++i) {
        Require(queue.Item(i).sourceURL == items[static_cast<std::size_t>(i)]);
    }
}

void Empty(MediaPlayer& player) {
    player.Stop();
    player.wmp.NewPlaylist();
    player.fadeInVolume = 0;
}

}  // namespace

// Any bytes may stand in the state file, and "/" is an item that is there. The queue is the text's, the player comes
// out unmuted, and either the file was used up or nothing plays. The journal may be any bytes too.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const auto bench = RestingBench();
    MediaPlayer& player = bench->program->mediaplayer;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = StateLines(text);
    std::string joined;
    for (const std::string& line : lines) {
        joined += line + "\r\n";
    }
    Require(joined == text + "\r\n");

    bench->folder.Write("restore.dat", text);
    player.PerformMediaplayerStateRestore();
    const bool usedUp = !bench->folder.Has("restore.dat");
    const bool plays = player.wmp.CurrentState() == PlayState::playing;
    Require(!player.wmp.Mute() && (!plays || usedUp) && (!usedUp || lines.size() >= 4));
    Require(player.wmp.CurrentPosition() >= 0);
    if (lines.size() >= 4) {
        RequireQueue(player.wmp, Items(lines));
        Empty(player);
        player.mpStateSave = text;
        player.PerformMediaplayerStateRestoreFromMemory();
        RequireQueue(player.wmp, Items(lines));
        Require(player.mpStateSave.empty() && player.wmp.CurrentState() != PlayState::playing);
    }
    Empty(player);

    const std::size_t half = size / 2;
    (void)ParseJournal(text.substr(0, half), text.substr(half));
    const JournalContent content{text.substr(0, half), size, text.substr(half), text};
    const auto parsed = ParseJournal(JournalText(content), text);
    Require(parsed && parsed->settings == content.settings && parsed->items == content.items);
    return 0;
}
