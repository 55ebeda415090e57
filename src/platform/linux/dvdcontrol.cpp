#include "platform/dvdcontrol.h"

#include "platform/lifetime.h"
#include "platform/linux/engine.h"
#include "platform/linux/enginelibrary.h"
#include "platform/linux/filmdim.h"
#include "platform/linux/filmwindow.h"
#include "platform/linux/worker.h"
#include "platform/log.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstring>

#include <unistd.h>

namespace zvr {
namespace {

using Clock = std::chrono::steady_clock;

constexpr Milliseconds backwardStep{500};
constexpr double mostZoom = 8;
constexpr int menuTitle = 0;

/// As the engine reads it: what means something in an address is written as a percent sign and two digits.
std::string AddressOf(const std::string& path) {
    constexpr std::string_view plain = "/-_.~";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address = "dvd://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte < 0x80 && std::isalnum(byte) != 0) || plain.find(c) != plain.npos) {
            address += c;
        } else {
            address += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return address;
}

/// One run of a disc. Its operations are called on the worker thread.
class Film {
public:
    /// `ended` is called on any thread.
    explicit Film(std::function<void(bool failed)> ended) : ended(std::move(ended)) {}
    ~Film() { Release(); }
    Film(const Film&) = delete;
    Film& operator=(const Film&) = delete;

    void Play(Engine& engine, const std::string& path, std::uintptr_t window, double dim) {
        vlc = EngineLibrary::Loaded();
        libvlc_instance_t* const instance = vlc == nullptr ? nullptr : engine.Instance();
        libvlc_media_t* const media =
            instance == nullptr ? nullptr : vlc->libvlc_media_new_location(instance, AddressOf(path).c_str());
        player = media == nullptr ? nullptr : vlc->libvlc_media_player_new_from_media(media);
        if (media != nullptr) {
            vlc->libvlc_media_release(media);
        }
        if (player == nullptr) {
            return ended(true);
        }
        if (window != 0) {
            vlc->libvlc_media_player_set_xwindow(player, static_cast<std::uint32_t>(window));
        }
        vlc->libvlc_video_set_key_input(player, 0);
        if (dim > 0) {
            DimFilm(*vlc, player, dim);
        }
        for (const auto type : {libvlc_MediaPlayerEndReached, libvlc_MediaPlayerEncounteredError}) {
            vlc->libvlc_event_attach(vlc->libvlc_media_player_event_manager(player), type, &OnEvent, this);
        }
        if (vlc->libvlc_media_player_play(player) != 0) {
            ended(true);
        }
    }

    void Release() {
        if (player == nullptr) {
            return;
        }
        for (const auto type : {libvlc_MediaPlayerEndReached, libvlc_MediaPlayerEncounteredError}) {
            vlc->libvlc_event_detach(vlc->libvlc_media_player_event_manager(player), type, &OnEvent, this);
        }
        vlc->libvlc_media_player_stop(player);
        vlc->libvlc_media_player_release(player);
        player = nullptr;
    }

    void Zoom(int x, int y, double ratio) {
        unsigned width = 0;
        unsigned height = 0;
        if (vlc->libvlc_video_get_size(player, 0, &width, &height) != 0 || width == 0 || height == 0) {
            return;
        }
        zoom = std::clamp(zoom * ratio, 1.0, mostZoom);
        if (zoom == 1) {
            vlc->libvlc_video_set_crop_geometry(player, nullptr);
            return;
        }
        // The margins around the cut, left, top, right and bottom.
        const auto margins = [this](int centre, unsigned extent) {
            const int whole = static_cast<int>(extent);
            const int cut = static_cast<int>(whole / zoom);
            const int before = std::clamp(centre - cut / 2, 0, whole - cut);
            return std::pair(before, whole - cut - before);
        };
        const auto [left, right] = margins(x, width);
        const auto [top, bottom] = margins(y, height);
        const std::string geometry = std::to_string(left) + "+" + std::to_string(top) + "+" + std::to_string(right) +
                                     "+" + std::to_string(bottom);
        vlc->libvlc_video_set_crop_geometry(player, geometry.c_str());
    }

    const EngineLibrary* vlc = nullptr;       ///< there as soon as `player` is
    libvlc_media_player_t* player = nullptr;  ///< null before the play and after the release

private:
    static void OnEvent(const libvlc_event_t* event, void* film) noexcept {
        static_cast<Film*>(film)->ended(event->type == libvlc_MediaPlayerEncounteredError);
    }

    const std::function<void(bool)> ended;
    double zoom = 1;
};

}  // namespace

struct DvdControl::State {
    State(EventLoop& loop, DvdControl& owner) : loop(&loop), owner(&owner), backwards(loop, [this] { StepBack(); }) {
        backwards.SetInterval(backwardStep);
    }

    EventLoop* loop;
    DvdControl* owner;
    std::shared_ptr<Engine> engine = std::make_shared<Engine>();
    Lifetime lifetime;
    std::string path;
    std::uintptr_t window = 0;
    double dim = 0;
    DvdState current = DvdState::uninitialised;
    std::shared_ptr<Film> film;  ///< null when it is stopped

    Timer backwards;
    double backwardSpeed = 0;
    Clock::time_point backwardSince;
    std::int64_t backwardFrom = -1;  ///< milliseconds; -1 until the engine has told

    FilmWindow filmWindow;          ///< outlives what is drawn into it
    std::unique_ptr<Worker> calls;  ///< made when it is first needed; ends first, with all that it uses still there

    /// Does it on the worker's thread, with the film's player, if there is one by then.
    template <typename Task>
    void Ask(Task task) {
        if (film == nullptr) {
            return;
        }
        calls->Do([film = film, task] {
            if (film->player != nullptr) {
                task(*film);
            }
        });
    }

    /// Elsewhere on the disc it plays on: the engine shows nothing new in a pause, and the steps backwards would undo
    /// it.
    template <typename Task>
    void Jump(Task task) {
        if (film != nullptr) {
            (void)owner->Play();
            Ask(task);
        }
    }

    void Begin();
    void End();
    void Ended(bool failed);
    void EndBackwards();
    void StepBack();
};

void DvdControl::State::Begin() {
    if (!calls) {
        calls = std::make_unique<Worker>();
    }
    lifetime.Renew();  // what an earlier film still has to say is no longer wanted
    const auto told = lifetime.Guard([this](bool failed) { Ended(failed); });
    film = std::make_shared<Film>([loop = loop, told](bool failed) { loop->Post([told, failed] { told(failed); }); });
    calls->Do([film = film, engine = engine, path = path, window = filmWindow.Inside(window), dim = dim] {
        film->Play(*engine, path, window, dim);
    });
    current = DvdState::running;
}

void DvdControl::State::End() {
    lifetime.Renew();
    EndBackwards();
    if (film != nullptr) {
        // A picture that the engine leaves behind goes with its window.
        const auto released = lifetime.Guard([this] { filmWindow.Leave(); });
        calls->Do([film = std::move(film), loop = loop, released] {
            film->Release();
            loop->Post(released);
        });
        film.reset();
        current = DvdState::stopped;
    }
}

void DvdControl::State::Ended(bool failed) {
    End();
    if (failed) {
        Log::Warning("the film disc {} can't be played", path);
        if (owner->onFailed) {
            owner->onFailed(std::strerror(ENOMEDIUM));
        }
    }
}

void DvdControl::State::EndBackwards() {
    if (backwards.Enabled()) {
        backwards.Stop();
        Ask([](Film& film) { film.vlc->libvlc_audio_set_mute(film.player, 0); });
    }
}

/// The engine plays no disc backwards: it jumps, by a clock of our own.
void DvdControl::State::StepBack() {
    const double elapsed = std::chrono::duration<double, std::milli>(Clock::now() - backwardSince).count();
    const auto now = backwardFrom - static_cast<std::int64_t>(backwardSpeed * elapsed);
    if (backwardFrom < 0) {
        return;
    }
    Ask([to = std::max<std::int64_t>(now, 0)](Film& film) { film.vlc->libvlc_media_player_set_time(film.player, to); });
    if (now <= 0) {
        EndBackwards();
    }
}

DvdControl::DvdControl(EventLoop& loop) : state(std::make_unique<State>(loop, *this)) {}

DvdControl::~DvdControl() {
    state->End();
}

DvdState DvdControl::PlayState() const {
    return state->current;
}

void DvdControl::SetDVDDirectory(const std::string& path) {
    state->path = path;
}

void DvdControl::SetVideoWindow(std::uintptr_t window) {
    state->window = window;
}

void DvdControl::SetDim(double share) {
    state->dim = share;
    state->Ask([share](Film& film) { DimFilm(*film.vlc, film.player, share); });
}

files::ErrorText DvdControl::Play() {
    if (state->film == nullptr) {
        if (access(state->path.c_str(), R_OK) != 0) {
            return std::strerror(errno);
        }
        state->Begin();
        return {};
    }
    state->EndBackwards();
    state->current = DvdState::running;
    state->Ask([](Film& film) {
        film.vlc->libvlc_media_player_set_rate(film.player, 1);
        film.vlc->libvlc_media_player_set_pause(film.player, 0);
    });
    return {};
}

void DvdControl::Pause() {
    if (state->current == DvdState::running) {
        state->EndBackwards();
        state->current = DvdState::paused;
        state->Ask([](Film& film) { film.vlc->libvlc_media_player_set_pause(film.player, 1); });
    }
}

void DvdControl::Stop() {
    state->End();
}

void DvdControl::PlayForwards(double speed) {
    if (state->film != nullptr) {
        (void)Play();
        state->Ask(
            [speed](Film& film) { film.vlc->libvlc_media_player_set_rate(film.player, static_cast<float>(speed)); });
    }
}

void DvdControl::PlayBackwards(double speed) {
    if (state->film == nullptr || state->backwards.Enabled()) {
        return;
    }
    (void)Play();
    state->backwardSpeed = speed;
    state->backwardFrom = -1;
    auto begun = state->lifetime.Guard([own = state.get()](std::int64_t from) {
        own->backwardFrom = from;
        own->backwardSince = Clock::now();
    });
    state->Ask([loop = state->loop, begun](Film& film) {
        film.vlc->libvlc_audio_set_mute(film.player, 1);
        loop->Post([begun, from = film.vlc->libvlc_media_player_get_time(film.player)] { begun(from); });
    });
    state->backwards.Start();
}

void DvdControl::PlayNextChapter() {
    state->Jump([](Film& film) { film.vlc->libvlc_media_player_next_chapter(film.player); });
}

void DvdControl::PlayPrevChapter() {
    state->Jump([](Film& film) { film.vlc->libvlc_media_player_previous_chapter(film.player); });
}

void DvdControl::ShowRootMenu() {
    state->Jump([](Film& film) { film.vlc->libvlc_media_player_set_title(film.player, menuTitle); });
}

void DvdControl::Zoom(int x, int y, double ratio) {
    state->Ask([x, y, ratio](Film& film) { film.Zoom(x, y, ratio); });
}

void DvdControl::Touch(Point p) {
    if (state->film != nullptr) {
        state->filmWindow.Press(p);
    }
}

}  // namespace zvr
