#include "media/playerstate.h"

#include "core/godfather.h"
#include "core/journal.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "media/playlistreader.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "system/playervolume.h"

namespace zvr {
namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t fewestLines = 4;
constexpr Milliseconds openingTime{1000};
constexpr int playing = 3;

// Places of the lines.
constexpr std::size_t currentLine = 0;
constexpr std::size_t positionLine = 1;
constexpr std::size_t playStateLine = 2;
constexpr std::size_t firstItemLine = 3;

std::string Line(const std::string& content) {
    return content + std::string(lineEnd);
}

}  // namespace

std::string StateFile(const std::string& programFolder) {
    return programFolder + "/restore.dat";
}

std::string CurrentLines(const PlayQueue& queue) {
    const MediaItem* const media = queue.CurrentMedia();
    if (media == nullptr) {
        return Line("") + Line("") + Line("");
    }
    return Line(media->sourceURL) + Line(std::to_string(RoundHalfEven(queue.CurrentPosition()))) +
           Line(std::to_string(static_cast<int>(queue.CurrentState())));
}

std::string ItemLines(const PlayQueue& queue) {
    std::string text;
    for (int i = 0; i < queue.Count(); ++i) {
        text.append(queue.Item(i).sourceURL).append(lineEnd);
    }
    return text;
}

std::vector<std::string> StateLines(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find(lineEnd); end != text.npos; end = text.find(lineEnd, begin)) {
        lines.emplace_back(text.substr(begin, end - begin));
        begin = end + lineEnd.size();
    }
    lines.emplace_back(text.substr(begin));
    return lines;
}

void MediaPlayer::PerformMediaplayerStateSave() {
    if (program.godfather.saveMediaplayerState && wmp.Count() > 0) {
        (void)files::WriteAtomic(StateFile(program.place.folder), StateLinesOfCurrent() + ItemLines(wmp));
    }
}

std::string MediaPlayer::StateLinesOfCurrent() const {
    return heldLines.empty() ? CurrentLines(wmp) : heldLines;
}

void MediaPlayer::StopForTheEnd() {
    heldLines = StateLinesOfCurrent();
    wmp.Stop();
}

void MediaPlayer::PerformMediaplayerStateSaveToMemory() {
    if (wmp.Count() > 0) {
        mpStateSave = StateLinesOfCurrent() + ItemLines(wmp);
    }
}

void MediaPlayer::PerformMediaplayerStateRestore() {
    const auto text = files::Read(StateFile(program.place.folder));
    if (program.godfather.saveMediaplayerState && text) {
        const std::vector<std::string> lines = StateLines(*text);
        if (lines.size() < fewestLines) {
            Log::Warning("{} holds no queue", StateFile(program.place.folder));
            return;
        }
        if (!RestoreQueueAndPosition(lines)) {
            return;  // the file stays: a stick that is missing now may be there at the next start
        }
        if (LeadingNumber(lines[playStateLine]) == playing) {
            if (fadeInOnStart) {
                program.playervolume.fadeInVolume = program.playervolume.Percent();
            }
            program.dispatchCommand("mediaplayer.play");
        }
        // The journal holds the queue before the file that held it goes: a cut between the two would lose it.
        program.journal.Start();
        program.journal.Flush();
    }
    (void)files::Remove(StateFile(program.place.folder));
}

void MediaPlayer::WhenRestored(std::function<void()> task) {
    if (heldLines.empty()) {
        task();
    } else {
        behindRestore.push_back(std::move(task));
    }
}

void MediaPlayer::PerformMediaplayerStateRestoreFromMemory() {
    const std::vector<std::string> lines = StateLines(mpStateSave);
    if (lines.size() < fewestLines) {
        return;
    }
    (void)RestoreQueueAndPosition(lines);
    mpStateSave.clear();
}

bool MediaPlayer::RestoreQueueAndPosition(const std::vector<std::string>& lines) {
    int noted = 0;
    wmp.NewPlaylist();
    for (std::size_t i = firstItemLine; i < lines.size(); ++i) {
        if (lines[i].empty()) {
            continue;
        }
        wmp.AppendItem(lines[i]);
        if (lines[i] == lines[currentLine]) {
            noted = wmp.Count() - 1;
        }
    }
    if (wmp.Count() == 0) {
        return false;
    }
    const std::string& address = wmp.Item(noted).sourceURL;
    const auto track = TrackOf(address);
    if (!files::Attributes(track ? track->disc : FoundPath(address))) {
        Log::Warning("{} is gone: the queue is there again, its place is not", address);
        return false;
    }
    // Opened in silence, so that its duration is known. One that is broken by now, or over sooner, must not bring on
    // the next: that one would play, paused as the player may have been.
    wmp.SetMute(true);
    wmp.staysOnItem = true;
    heldLines = Line(lines[currentLine]) + Line(lines[positionLine]) + Line(lines[playStateLine]);
    StartAt(noted);
    program.platform.loop.Wait(openingTime);
    for (auto& task : std::exchange(behindRestore, {})) {
        program.platform.loop.Post(std::move(task));
    }
    wmp.staysOnItem = false;
    wmp.SetMute(false);
    const bool driverWasFaster = std::exchange(heldLines, {}).empty();
    if (program.platform.loop.IsQuitting() || driverWasFaster) {
        return false;
    }
    wmp.Stop();
    const double position = LeadingNumber(lines[positionLine]);
    if (position > 0 && position < wmp.Item(noted).duration) {
        wmp.SetCurrentPosition(position);
    }
    return true;
}

}  // namespace zvr
