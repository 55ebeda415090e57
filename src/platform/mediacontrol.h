#pragma once

#include "platform/eventloop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zvr {

enum class PlayState { undefined = 0, stopped = 1, paused = 2, playing = 3, opening = 9 };

/// What an item without a title is called: its file's name without the extension, or "Track 3".
[[nodiscard]] std::string UntitledName(const std::string& address);

/// Plays one item at a time: a file path, or an address such as "cdda:///dev/sr0#3". Never waits for the engine.
class MediaControl {
public:
    explicit MediaControl(EventLoop& loop);
    ~MediaControl();
    MediaControl(const MediaControl&) = delete;
    MediaControl& operator=(const MediaControl&) = delete;

    /// The engine can be created and has its plugins. Slow the first time; makes nothing that lasts.
    [[nodiscard]] static bool IsAvailable();

    /// Takes the place of what was open. Starts nothing.
    void Open(const std::string& address);
    void Close();
    void Play();
    void Pause();
    void Stop();  ///< back to the beginning
    [[nodiscard]] PlayState CurrentState() const;

    [[nodiscard]] double Position() const;    ///< seconds, runs smoothly between the engine's own steps; 0 when stopped
    void SetPosition(double seconds);         ///< also while paused; before play it is where play begins
    [[nodiscard]] double Duration() const;    ///< seconds, 0 while unknown
    [[nodiscard]] std::string Title() const;  ///< from the file's tags, else UntitledName
    [[nodiscard]] bool HasVideo() const;      ///< false until the engine knows

    void SetVolume(int percent);  ///< 0..100, clamped; holds for all items
    [[nodiscard]] int Volume() const;
    void SetMute(bool muted);
    [[nodiscard]] bool Mute() const;

    /// Native window to draw video into; 0 for none. Takes effect at the next Open.
    void SetVideoWindow(std::uintptr_t window);
    void SetDim(double share);  ///< darkens the pictures of all items: 0 not at all, 0.5 to half

    // Called from the event loop, never from inside another operation of this object.
    /// The item has played, but for the last moment, which is still heard: what is played now follows without a gap.
    std::function<void()> onEnded;
    /// It can't be played: missing, unreadable, or nothing in it. Position() is still where that showed.
    std::function<void()> onFailed;
    std::function<void()> onChanged;  ///< state, duration, title or video became known or changed

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
