#include "platform/linux/engine.h"

#include "platform/linux/disctrackfile.h"
#include "platform/linux/enginelibrary.h"
#include "platform/linux/filmdim.h"
#include "platform/log.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zvr {
namespace {

constexpr int parseLimit = 3000;  // milliseconds

constexpr std::array playerEvents{
    libvlc_MediaPlayerPlaying,       libvlc_MediaPlayerEndReached,  libvlc_MediaPlayerEncounteredError,
    libvlc_MediaPlayerLengthChanged, libvlc_MediaPlayerTimeChanged, libvlc_MediaPlayerESAdded,
    libvlc_MediaPlayerVout,          libvlc_MediaPlayerBuffering};

bool IsAddress(const std::string& address) {
    return address.find("://") != std::string::npos;
}

/// The engine reports a folder, or a file with nothing in it, as an item that has ended.
bool IsPlayableFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode) &&
           (!S_ISREG(status.st_mode) || status.st_size > 0) && access(path.c_str(), R_OK) == 0;
}

/// In Ogg the engine's own reader takes many a place that one jumps to for the end. The other reader finds it, and
/// takes a tenth of a second longer to start.
bool JumpsAstray(const std::string& path) {
    return text::EndsWithAscii(path, ".ogg") || text::EndsWithAscii(path, ".oga");
}

/// Looks at places all over it: what was played lies in the system's cache also when the stick is gone.
bool CanBeRead(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    bool readable = file >= 0 && fstat(file, &status) == 0;
    constexpr int places = 8;
    for (int i = 0; readable && i < places; ++i) {
        char byte = 0;
        readable = pread(file, &byte, 1, status.st_size / places * i) == 1;
    }
    if (file >= 0) {
        close(file);
    }
    return readable;
}

// What the engine asks of a track, on a thread of its own. No exception may get into it: it is written in C.

int OpenTrack(void* track, void** opened, std::uint64_t* size) noexcept {
    auto file = DiscTrackFile::Open(*static_cast<const DiscTrack*>(track));
    if (!file) {
        return -1;
    }
    *size = file->Size();
    *opened = file.release();
    return 0;
}

ssize_t ReadTrack(void* opened, unsigned char* bytes, std::size_t length) noexcept {
    return static_cast<DiscTrackFile*>(opened)->Read(bytes, length);
}

int SeekTrack(void* opened, std::uint64_t place) noexcept {
    return static_cast<DiscTrackFile*>(opened)->Seek(place) ? 0 : -1;
}

void CloseTrack(void* opened) noexcept {
    delete static_cast<DiscTrackFile*>(opened);
}

double Seconds(std::int64_t milliseconds) {
    return milliseconds > 0 ? static_cast<double>(milliseconds) / 1000.0 : 0;
}

bool HoldsPlugins(const std::filesystem::path& folder) {
    std::error_code error;
    return std::filesystem::exists(folder / "plugins.dat", error) || std::filesystem::exists(folder / "codec", error);
}

}  // namespace

Engine::~Engine() {
    if (instance != nullptr) {
        EngineLibrary::Loaded()->libvlc_release(instance);
    }
}

bool Engine::IsInstalled() {
    const EngineLibrary* const vlc = EngineLibrary::Loaded();
    if (vlc == nullptr) {
        return false;
    }
    const char* const path = std::getenv("VLC_PLUGIN_PATH");
    return HoldsPlugins(path != nullptr ? std::filesystem::path(path) : vlc->folder / "vlc/plugins");
}

libvlc_instance_t* Engine::Instance() {
    const std::lock_guard lock(mutex);
    const EngineLibrary* const vlc = EngineLibrary::Loaded();
    if (instance == nullptr && vlc != nullptr) {
        constexpr std::array arguments{"--no-xlib",
                                       "--no-video-title-show",
                                       "--no-lua",
                                       "--no-sub-autodetect-file",
                                       "--no-metadata-network-access",
                                       "--verbose=-1"};
        instance = vlc->libvlc_new(static_cast<int>(arguments.size()), arguments.data());
        if (instance == nullptr) {  // one unknown argument is enough for that
            instance = vlc->libvlc_new(0, nullptr);
        }
        if (instance == nullptr) {
            const char* const reason = vlc->libvlc_errmsg();
            Log::Error("the media engine can't be made: {}", reason == nullptr ? "it gives no reason" : reason);
        }
    }
    return instance;
}

void Engine::TakeWindow(std::uintptr_t window, const EngineMedium* user) {
    std::unique_lock lock(mutex);
    windowLeft.wait_for(lock, std::chrono::seconds(3), [this, window, user] {
        return std::none_of(windowUsers.begin(), windowUsers.end(),
                            [=](const auto& use) { return use.second == window && use.first != user; });
    });
    windowUsers[user] = window;
}

void Engine::KeepWindow(std::uintptr_t window, const EngineMedium* user) {
    const std::lock_guard lock(mutex);
    windowUsers[user] = window;
}

void Engine::LeaveWindow(const EngineMedium* user) {
    const std::lock_guard lock(mutex);
    if (windowUsers.erase(user) > 0) {
        windowLeft.notify_all();
    }
}

EngineMedium::EngineMedium(std::shared_ptr<Engine> engine, Sink sink)
    : engine(std::move(engine)), sink(std::move(sink)), voice(SoundOutput::MakeVoice([this] {
          if (!hasVideo) {  // a picture has an end of its own
              ReportEnd();
          }
      })) {}

EngineMedium::~EngineMedium() {
    Release();
}

bool EngineMedium::Abandoned() const {
    const std::lock_guard lock(mutex);
    return !sink;
}

void EngineMedium::Abandon() {
    {
        const std::lock_guard lock(mutex);
        sink = nullptr;
    }
    engine->Sound().Leave(*voice);
}

void EngineMedium::SetSilent(bool silent) {
    engine->Sound().SetPaused(*voice, silent);
}

void EngineMedium::Report(const EngineReport& report) {
    const std::lock_guard lock(mutex);
    if (sink) {
        sink(report);
    }
}

void EngineMedium::NoteStep(double seconds) {
    const std::lock_guard lock(mutex);
    moment = {seconds, std::chrono::steady_clock::now()};
}

void EngineMedium::NoteLength(double seconds) {
    {
        const std::lock_guard lock(mutex);
        // A variable bit rate moves the length by a hair four times a second.
        if (seconds <= 0 || std::abs(seconds - lastLength) < 0.05) {
            return;
        }
        lastLength = seconds;
    }
    Report({EngineReport::Kind::length, seconds, {}});
}

/// To the engine a stick that was pulled is the end of the item.
bool EngineMedium::WasLost() const {
    constexpr double longBeforeTheEnd = 3;  // the engine's steps stop a second before it anyway
    {
        const std::lock_guard lock(mutex);
        if (file.empty() || lastLength - moment.seconds < longBeforeTheEnd) {
            return false;
        }
    }
    const bool lost = !CanBeRead(file);
    if (lost) {
        Log::Warning("{} can't be read any more", file);
    }
    return lost;
}

EngineMedium::Moment EngineMedium::LastMoment() const {
    const std::lock_guard lock(mutex);
    return moment;
}

void EngineMedium::HandleEnd() {
    SoundOutput& sound = engine->Sound();
    wasLost = wasLost || WasLost();
    if (seeking) {  // behind the end: nothing came from there
        sound.Drop(*voice);
    }
    hasEnded = true;
    sound.Finish(*voice);
    if (hasVideo || !sound.HasSound(*voice)) {
        ReportEnd();
    }
}

void EngineMedium::ReportEnd() {
    if (!endReported.exchange(true)) {
        Report({wasLost ? EngineReport::Kind::failed : EngineReport::Kind::ended, 0, {}});
    }
}

/// The engine draws its first picture before it knows the window's size, and the next one once it is filled.
void EngineMedium::ReportVideo() {
    if (hasPicture && isFilled && !videoReported.exchange(true)) {
        Report({EngineReport::Kind::video, 0, {}});
    }
}

/// The sound comes to us in place of the engine's own output.
void EngineMedium::TakeSound() {
    const auto begin = [](void** self, char* format, unsigned* rate, unsigned* channels) noexcept {
        auto& medium = *static_cast<EngineMedium*>(*self);
        std::copy_n("S16N", 4, format);
        *rate = std::clamp(*rate, 8000U, 192'000U);
        *channels = 2;
        medium.engine->Sound().Begin(medium.voice, static_cast<int>(*rate));
        return 0;
    };
    const auto play = [](void* self, const void* samples, unsigned count, std::int64_t due) noexcept {
        auto& medium = *static_cast<EngineMedium*>(self);
        medium.engine->Sound().Write(*medium.voice, {static_cast<const SoundFrame*>(samples), count}, due);
    };
    const auto flush = [](void* self, std::int64_t) noexcept {
        auto& medium = *static_cast<EngineMedium*>(self);
        medium.seeking = false;
        if (!medium.hasEnded) {  // the engine clears up, but what it handed over is still to be heard
            medium.engine->Sound().Drop(*medium.voice);
        }
    };
    const auto drain = [](void* self) noexcept {
        auto& medium = *static_cast<EngineMedium*>(self);
        medium.wasLost = medium.WasLost();
        medium.engine->Sound().Finish(*medium.voice);
        medium.engine->Sound().WaitForTheEnd(*medium.voice);
    };
    // The output pauses by itself; without these the engine would flush.
    const auto nothing = [](void*, std::int64_t) noexcept {};
    vlc->libvlc_audio_set_callbacks(player, play, nothing, nothing, flush, drain, this);
    vlc->libvlc_audio_set_format_callbacks(player, begin, nullptr);
}

/// Runs on the engine's threads, where nearly every call into the engine deadlocks.
void EngineMedium::OnEvent(const libvlc_event_t* event, void* self) noexcept {
    auto& medium = *static_cast<EngineMedium*>(self);
    switch (event->type) {
        case libvlc_MediaPlayerTimeChanged:
            return medium.NoteStep(Seconds(event->u.media_player_time_changed.new_time));
        case libvlc_MediaPlayerLengthChanged:
            return medium.NoteLength(Seconds(event->u.media_player_length_changed.new_length));
        case libvlc_MediaPlayerPlaying:
            // Sound alone needs no window, and the next item need not wait for its end.
            if (!medium.hasVideo) {
                medium.engine->LeaveWindow(&medium);
            }
            return medium.Report({EngineReport::Kind::playing, 0, {}});
        case libvlc_MediaPlayerEndReached:
            return medium.HandleEnd();
        case libvlc_MediaPlayerEncounteredError:
            return medium.Report({EngineReport::Kind::failed, 0, {}});
        case libvlc_MediaPlayerESAdded:
            if (event->u.media_player_es_changed.i_type == libvlc_track_video) {
                medium.hasVideo = true;
                medium.engine->Sound().SetKeepsTime(*medium.voice);
                medium.engine->KeepWindow(medium.window, &medium);  // some formats tell late that they have a picture
                medium.hasPicture = medium.hasPicture || medium.window == 0;  // nobody draws it
                medium.ReportVideo();
            }
            return;
        case libvlc_MediaPlayerVout:
            medium.hasPicture = event->u.media_player_vout.new_count > 0;
            return medium.ReportVideo();
        case libvlc_MediaPlayerBuffering:
            medium.isFilled = event->u.media_player_buffering.new_cache >= 100.0F;
            return medium.ReportVideo();
        case libvlc_MediaParsedChanged:
            return medium.Report({EngineReport::Kind::parsed, 0, {}});
        default:
            return;
    }
}

bool EngineMedium::Make(const std::string& address) {
    libvlc_instance_t* instance = Abandoned() ? nullptr : engine->Instance();
    vlc = EngineLibrary::Loaded();
    if (instance == nullptr || (!IsAddress(address) && !IsPlayableFile(address))) {
        return false;
    }
    track = TrackOf(address);
    media = track ? vlc->libvlc_media_new_callbacks(instance, &OpenTrack, &ReadTrack, &SeekTrack, &CloseTrack, &*track)
            : IsAddress(address) ? vlc->libvlc_media_new_location(instance, address.c_str())
                                 : vlc->libvlc_media_new_path(instance, address.c_str());
    return media != nullptr;
}

void EngineMedium::Play(const Wish& wish) {
    window = wish.window;
    if (window != 0) {
        engine->TakeWindow(window, this);
    }
    if (!Make(wish.address)) {
        return Report({EngineReport::Kind::failed, 0, {}});
    }
    if (wish.start > 0) {
        // Whole seconds and milliseconds by hand: printf would follow the locale's decimal point.
        const auto milliseconds = static_cast<long long>(wish.start * 1000);
        const std::string fraction = std::to_string(1000 + milliseconds % 1000).substr(1);
        vlc->libvlc_media_add_option(media,
                                     (":start-time=" + std::to_string(milliseconds / 1000) + "." + fraction).c_str());
    }
    file = IsAddress(wish.address) ? std::string{} : wish.address;
    if (JumpsAstray(file)) {
        vlc->libvlc_media_add_option(media, ":demux=avformat,any");
    }
    if (wish.window == 0) {
        vlc->libvlc_media_add_option(media, ":no-video");  // else the engine opens a window of its own
    }
    player = vlc->libvlc_media_player_new_from_media(media);
    if (player == nullptr) {
        return Report({EngineReport::Kind::failed, 0, {}});
    }
    if (wish.window != 0) {
        vlc->libvlc_media_player_set_xwindow(player, static_cast<std::uint32_t>(wish.window));
        vlc->libvlc_video_set_mouse_input(player, 0);
        vlc->libvlc_video_set_key_input(player, 0);
    }
    if (wish.dim > 0) {
        DimFilm(*vlc, player, wish.dim);
    }
    for (const auto type : playerEvents) {
        vlc->libvlc_event_attach(vlc->libvlc_media_player_event_manager(player), type, &OnEvent, this);
    }
    NoteStep(wish.start);
    TakeSound();
    if (vlc->libvlc_media_player_play(player) != 0) {
        Report({EngineReport::Kind::failed, 0, {}});
    }
}

void EngineMedium::Parse(const std::string& path) {
    if (Make(path)) {
        parsing = true;
        vlc->libvlc_event_attach(vlc->libvlc_media_event_manager(media), libvlc_MediaParsedChanged, &OnEvent, this);
        vlc->libvlc_media_parse_with_options(media, libvlc_media_parse_local, parseLimit);
    }
}

void EngineMedium::ReportTags() {
    if (media == nullptr) {
        return;
    }
    EngineReport report{EngineReport::Kind::tags, Seconds(vlc->libvlc_media_get_duration(media)), {}};
    if (char* title = vlc->libvlc_media_get_meta(media, libvlc_meta_Title); title != nullptr) {
        report.title = title;
        vlc->libvlc_free(title);
    }
    Report(report);
}

void EngineMedium::SetPaused(bool paused) {
    if (player != nullptr) {
        vlc->libvlc_media_player_set_pause(player, paused ? 1 : 0);
    }
}

void EngineMedium::SetPosition(double seconds) {
    if (player != nullptr) {
        seeking = true;
        engine->Sound().GoElsewhere(*voice);
        vlc->libvlc_media_player_set_time(player, static_cast<libvlc_time_t>(seconds * 1000));
    }
}

void EngineMedium::SetDim(double share) {
    if (player != nullptr) {
        DimFilm(*vlc, player, share);
    }
}

void EngineMedium::Release() {
    Abandon();
    if (player != nullptr) {
        for (const auto type : playerEvents) {
            vlc->libvlc_event_detach(vlc->libvlc_media_player_event_manager(player), type, &OnEvent, this);
        }
        vlc->libvlc_media_player_stop(player);
        vlc->libvlc_media_player_release(player);
        player = nullptr;
    }
    engine->LeaveWindow(this);
    if (media != nullptr) {
        if (parsing) {
            vlc->libvlc_media_parse_stop(media);
            // Detaching what was never attached ends the process.
            vlc->libvlc_event_detach(vlc->libvlc_media_event_manager(media), libvlc_MediaParsedChanged, &OnEvent, this);
        }
        vlc->libvlc_media_release(media);
        media = nullptr;
    }
}

}  // namespace zvr
