#pragma once

#include "platform/mediacontrol.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// One entry of the queue.
struct MediaItem {
    std::string sourceURL;  ///< as it was added: a file path or an address such as "cdda:///dev/sr0#3"
    std::string name;       ///< the file's name without extension, or "Track 3", until it was opened, then its title
    double duration = 0;    ///< seconds, 0 while unknown

    [[nodiscard]] std::string DurationString() const;  ///< "mm:ss" or "h:mm:ss"
};

/// The player with its queue: `wmp`. It goes on to the next item by itself and wraps around at the end; an item that
/// can't be played is passed over, until one whole round has failed. When it shows that the items' folders have gone,
/// it goes back to where that began: a stick that was pulled may come back.
class PlayQueue {
public:
    /// Both outlive this object. The same seed shuffles the same way.
    PlayQueue(EventLoop& loop, MediaControl& media, std::uint64_t seed);
    ~PlayQueue();
    PlayQueue(const PlayQueue&) = delete;
    PlayQueue& operator=(const PlayQueue&) = delete;

    // The queue. Items are numbered from 0.
    void NewPlaylist();                                                  ///< empties it; what plays ends
    void AppendItem(const std::string& sourceURL, double duration = 0);  ///< seconds, 0 for unknown
    [[nodiscard]] int Count() const;
    [[nodiscard]] const MediaItem& Item(int index) const;
    /// Takes the place of the queue: the entries of a playlist file (.m3u, .pls), or the one file. Starts nothing.
    void SetURL(const std::string& path);

    [[nodiscard]] int CurrentItem() const;  ///< -1 for none
    void SetCurrentItem(int index);         ///< opens it at its beginning; plays on if it was playing
    /// Null when nothing is loaded. Good until the queue changes.
    [[nodiscard]] const MediaItem* CurrentMedia() const;

    void Play();   ///< without a current item the first one, or any one in shuffle mode
    void Pause();  ///< does nothing unless it plays
    void Stop();   ///< back to the item's beginning
    // A step from a stopped player selects and no more; else the item plays.
    void Next();
    void Previous();  ///< in shuffle mode back along what was played
    /// What was asked for last, as far as the media allow: `playing` also while an item is being opened. `undefined`
    /// without a current item.
    [[nodiscard]] PlayState CurrentState() const;

    [[nodiscard]] double CurrentPosition() const;             ///< seconds
    void SetCurrentPosition(double seconds);                  ///< also while paused or stopped
    [[nodiscard]] std::string CurrentPositionString() const;  ///< "mm:ss" or "h:mm:ss"; empty at rest at the beginning

    [[nodiscard]] int Volume() const;  ///< 0..100
    void SetVolume(int percent);       ///< clamped
    [[nodiscard]] bool Mute() const;
    void SetMute(bool muted);

    /// Modes are "shuffle" and "loop". The queue always wraps around: "loop" is remembered and no more.
    void SetMode(std::string_view mode, bool on);
    [[nodiscard]] bool GetMode(std::string_view mode) const;

    bool staysOnItem = false;  ///< the end of an item, or its failure, stops the player there

    /// The current item is another one, or none. Called from the event loop, once for several changes in one turn.
    std::function<void()> onMediaChange;
    /// State, duration, title or video of the current item became known or changed. Called from the event loop.
    std::function<void()> onMediaInfo;

    struct State;

private:
    std::unique_ptr<State> state;
};

}  // namespace zvr
