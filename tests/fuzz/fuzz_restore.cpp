#include "target.h"

#include "core/godfather.h"
#include "core/journal.h"
#include "media/mediaplayer.h"
#include "media/playerstate.h"
#include "platform/headless/mediacontrol.h"
#include "support/bench.h"
#include "system/playervolume.h"

#include <algorithm>

using namespace zvr;

namespace {

/// At rest: without ticks a second of waiting is one step of virtual time.
std::unique_ptr<Bench> RestingBench() {
    auto bench = std::make_unique<Bench>();
    bench->Start();
    bench->program->journal.End();
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

/// Either the file was used up or nothing plays.
void RestoreFromFile(Bench& bench, const std::string& text, const std::vector<std::string>& lines) {
    MediaPlayer& player = bench.program->mediaplayer;
    bench.folder.Write("restore.dat", text);
    player.PerformMediaplayerStateRestore();
    bench.program->journal.End();  // it began with the restored queue
    const bool usedUp = !bench.folder.Has("restore.dat");
    const bool plays = player.wmp.CurrentState() == PlayState::playing;
    Require((!plays || usedUp) && (!usedUp || lines.size() >= 4));
}

/// A text that is none stays where it is; any other is used up, and nothing plays.
void RestoreFromMemory(MediaPlayer& player, const std::string& text, const std::vector<std::string>& lines) {
    player.mpStateSave = text;
    player.PerformMediaplayerStateRestoreFromMemory();
    Require(player.mpStateSave == (lines.size() >= 4 ? "" : text));
    Require(player.wmp.CurrentState() != PlayState::playing);
}

void Empty(Program& program) {
    MediaPlayer& player = program.mediaplayer;
    player.Stop();
    player.wmp.NewPlaylist();
    program.playervolume.fadeInVolume = 0;
}

}  // namespace

// Any bytes may stand in the state file, and "/" is an item that is there. The queue is the text's and the
// player comes out unmuted. The file itself is the slower road, so every fourth length takes it. The journal may be any
// bytes too.
void zvr::Try(std::string_view input) {
    static const auto bench = RestingBench();
    MediaPlayer& player = bench->program->mediaplayer;
    const std::string text(input);
    const std::size_t size = text.size();
    const std::vector<std::string> lines = StateLines(text);
    if (size % 4 == 0) {
        RestoreFromFile(*bench, text, lines);
    } else {
        RestoreFromMemory(player, text, lines);
    }
    RequireQueue(player.wmp, lines.size() >= 4 ? Items(lines) : std::vector<std::string>{});
    Require(!player.wmp.Mute() && player.wmp.CurrentPosition() >= 0);
    Empty(*bench->program);
    bench->platform.media.state->opened.clear();

    const std::size_t half = size / 2;
    (void)ParseJournal(text.substr(0, half), text.substr(half));
    const JournalContent content{text.substr(0, half), size, static_cast<int>(size % 101), text.substr(half), text};
    const auto parsed = ParseJournal(JournalText(content), text);
    Require(parsed && parsed->settings == content.settings && parsed->items == content.items);
}
