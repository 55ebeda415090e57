#pragma once

#include "platform/discs.h"
#include "platform/linux/soundoutput.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

struct libvlc_event_t;
struct libvlc_instance_t;
struct libvlc_media_player_t;
struct libvlc_media_t;

namespace zvr {

struct EngineLibrary;
class EngineMedium;

/// The one instance of the media engine, made when it is first needed.
class Engine {
public:
    Engine() = default;
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// The plugins lie where the engine looks for them. Loads nothing.
    [[nodiscard]] static bool IsInstalled();
    [[nodiscard]] libvlc_instance_t* Instance();  ///< null: it can't be made. Any thread may call
    [[nodiscard]] SoundOutput& Sound() { return sound; }

    /// The engine draws two media into one window by opening a window of its own for the second, on the bare desktop
    /// and deaf for touches. So a window has one user at a time: waits for the others, three seconds at most.
    void TakeWindow(std::uintptr_t window, const EngineMedium* user);
    void KeepWindow(std::uintptr_t window, const EngineMedium* user);  ///< the same without the wait
    void LeaveWindow(const EngineMedium* user);

private:
    std::mutex mutex;
    libvlc_instance_t* instance = nullptr;
    SoundOutput sound;
    std::condition_variable windowLeft;
    std::map<const EngineMedium*, std::uintptr_t> windowUsers;
};

/// What the engine tells of one medium.
struct EngineReport {
    enum class Kind { playing, ended, failed, length, video, parsed, tags };
    Kind kind = Kind::failed;
    double seconds = 0;  ///< length, tags: of the medium, 0 if unknown
    std::string title;   ///< tags
};

/// One medium on one player of its own, or looked into without playing it. Its operations are called on the
/// engine's worker thread unless told otherwise.
class EngineMedium {
public:
    using Sink = std::function<void(const EngineReport&)>;
    struct Wish {
        std::string address;  ///< a path or an address
        double start = 0;     ///< seconds
        std::uintptr_t window = 0;
        double dim = 0;  ///< share
    };

    /// `sink` is called on any thread.
    EngineMedium(std::shared_ptr<Engine> engine, Sink sink);
    ~EngineMedium();
    EngineMedium(const EngineMedium&) = delete;
    EngineMedium& operator=(const EngineMedium&) = delete;

    void Play(const Wish& wish);
    void Parse(const std::string& path);  ///< `parsed` is reported when ReportTags knows them, or nothing is
    void ReportTags();
    void SetPaused(bool paused);
    void SetPosition(double seconds);
    void SetDim(double share);

    /// Silent, or heard again. Any thread.
    void SetSilent(bool silent);
    /// Nothing is reported from here on, and nothing heard but what is left of an item that has ended. Any thread;
    /// waits for a report under way.
    void Abandon();
    void Release();  ///< any thread, as the last call; may take seconds

    struct Moment {
        double seconds = 0;
        std::chrono::steady_clock::time_point at;
    };
    [[nodiscard]] Moment LastMoment() const;  ///< the engine's latest step; any thread

private:
    static void OnEvent(const libvlc_event_t* event, void* self) noexcept;
    void TakeSound();
    void HandleEnd();
    void ReportEnd();
    void ReportVideo();
    [[nodiscard]] bool Make(const std::string& address);
    [[nodiscard]] bool Abandoned() const;
    [[nodiscard]] bool WasLost() const;
    void Report(const EngineReport& report);
    void NoteStep(double seconds);
    void NoteLength(double seconds);

    std::shared_ptr<Engine> engine;
    mutable std::mutex mutex;
    Sink sink;  ///< empty once abandoned
    Moment moment;
    double lastLength = 0;
    std::string file;                    ///< that plays; empty for an address
    std::optional<DiscTrack> track;      ///< that plays
    const EngineLibrary* vlc = nullptr;  ///< there as soon as `media` is
    libvlc_media_t* media = nullptr;
    libvlc_media_player_t* player = nullptr;
    bool parsing = false;
    std::uintptr_t window = 0;  ///< that video goes into
    std::atomic<bool> hasVideo = false;
    std::atomic<bool> hasPicture = false;
    std::atomic<bool> isFilled = false;  ///< it read enough to go on from the first picture
    std::atomic<bool> videoReported = false;
    std::atomic<bool> wasLost = false;  ///< it ended because it can no longer be read
    std::atomic<bool> seeking = false;  ///< the sound of the place before comes still
    std::atomic<bool> hasEnded = false;
    std::atomic<bool> endReported = false;
    std::shared_ptr<SoundOutput::Voice> voice;
};

}  // namespace zvr
