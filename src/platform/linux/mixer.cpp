#include "platform/mixer.h"

#include "platform/log.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <span>
#include <vector>

#include <alsa/asoundlib.h>
#include <poll.h>

namespace zvr {
namespace {

using Clock = std::chrono::steady_clock;

constexpr long loudest = 65535;
constexpr std::chrono::seconds betweenOpenings{2};

constexpr std::array leftChannels{SND_MIXER_SCHN_FRONT_LEFT, SND_MIXER_SCHN_REAR_LEFT, SND_MIXER_SCHN_SIDE_LEFT};
constexpr std::array rightChannels{SND_MIXER_SCHN_FRONT_RIGHT, SND_MIXER_SCHN_REAR_RIGHT, SND_MIXER_SCHN_SIDE_RIGHT};

/// The element names of a line; the first element that has what is needed serves it.
std::span<const char* const> NamesOf(MixerLine line) {
    static constexpr std::array master{"Master", "PCM", "Speaker", "Headphone"};
    static constexpr std::array microphone{"Mic", "Front Mic", "Capture"};
    static constexpr std::array waveOutput{"PCM", "Wave", "Master"};
    static constexpr std::array lineIn{"Line", "Aux"};
    static constexpr std::array cd{"CD"};
    static constexpr std::array synthesizer{"Synth", "FM"};
    switch (line) {
        case MixerLine::master:
            return master;
        case MixerLine::microphone:
            return microphone;
        case MixerLine::waveOutput:
            return waveOutput;
        case MixerLine::lineIn:
            return lineIn;
        case MixerLine::cd:
            return cd;
        case MixerLine::synthesizer:
            return synthesizer;
    }
    return {};
}

/// The library writes to the terminal by itself.
void Silence(const char*, int, const char*, int, const char*, ...) {}

struct RawLevel {
    long left = 0;
    long right = 0;
    friend bool operator==(const RawLevel&, const RawLevel&) = default;
};

/// Volume or switch of an element: that of playback, else that of capture.
enum class Direction { none, playback, capture };

Direction VolumeDirection(snd_mixer_elem_t* element) {
    if (snd_mixer_selem_has_playback_volume(element) != 0) {
        return Direction::playback;
    }
    return snd_mixer_selem_has_capture_volume(element) != 0 ? Direction::capture : Direction::none;
}

Direction SwitchDirection(snd_mixer_elem_t* element) {
    if (snd_mixer_selem_has_playback_switch(element) != 0) {
        return Direction::playback;
    }
    return snd_mixer_selem_has_capture_switch(element) != 0 ? Direction::capture : Direction::none;
}

std::optional<LevelRange> RangeOf(snd_mixer_elem_t* element) {
    long minimum = 0;
    long maximum = 0;
    const int failed = VolumeDirection(element) == Direction::playback
                           ? snd_mixer_selem_get_playback_volume_range(element, &minimum, &maximum)
                           : snd_mixer_selem_get_capture_volume_range(element, &minimum, &maximum);
    if (failed < 0 || minimum < 0 || maximum <= minimum) {
        return std::nullopt;
    }
    return LevelRange{static_cast<std::uint32_t>(minimum), static_cast<std::uint32_t>(maximum)};
}

}  // namespace

struct Mixer::State {
    snd_mixer_t* mixer = nullptr;
    std::vector<pollfd> news;  ///< readable when something changed outside
    Clock::time_point lastTry;
    unsigned openings = 0;
    std::optional<std::uint32_t> waveSet;  ///< what was asked for
    RawLevel waveRaw;                      ///< what the card made of it

    ~State() { Close(); }

    bool Open();
    void Close();
    [[nodiscard]] bool Ready();
    [[nodiscard]] snd_mixer_elem_t* Find(MixerLine line, Direction (*wanted)(snd_mixer_elem_t*));
    [[nodiscard]] snd_mixer_elem_t* Wave();
    static std::optional<RawLevel> Read(snd_mixer_elem_t* element);
    static void Write(snd_mixer_elem_t* element, RawLevel level);
};

bool Mixer::State::Open() {
    lastTry = Clock::now();
    snd_lib_error_set_handler(&Silence);
    int error = snd_mixer_open(&mixer, 0);
    if (error < 0) {
        mixer = nullptr;
    } else if ((error = snd_mixer_attach(mixer, "default")) < 0 ||
               (error = snd_mixer_selem_register(mixer, nullptr, nullptr)) < 0 || (error = snd_mixer_load(mixer)) < 0) {
        Close();
    }
    if (mixer == nullptr) {
        Log::Error("the mixer of the sound card \"default\" can't be opened: {}", snd_strerror(error));
        return false;
    }
    ++openings;
    news.resize(static_cast<std::size_t>(std::max(snd_mixer_poll_descriptors_count(mixer), 0)));
    snd_mixer_poll_descriptors(mixer, news.data(), static_cast<unsigned>(news.size()));
    return true;
}

void Mixer::State::Close() {
    if (mixer != nullptr) {
        snd_mixer_close(mixer);
        mixer = nullptr;
    }
}

/// Takes in what changed outside. A sound server that went away is asked again now and then.
bool Mixer::State::Ready() {
    // The look alone costs a tenth of taking in nothing, and every tick reads several values.
    const bool changed = mixer != nullptr && poll(news.data(), news.size(), 0) != 0;
    if (const int result = changed ? snd_mixer_handle_events(mixer) : 0; result < 0) {
        Log::Warning("the mixer of the sound card \"default\" has gone: {}", snd_strerror(result));
        Close();
        waveSet.reset();
    }
    if (mixer == nullptr && lastTry != Clock::time_point{} && Clock::now() - lastTry > betweenOpenings) {
        Open();
    }
    return mixer != nullptr;
}

snd_mixer_elem_t* Mixer::State::Find(MixerLine line, Direction (*wanted)(snd_mixer_elem_t*)) {
    if (!Ready()) {
        return nullptr;
    }
    snd_mixer_selem_id_t* id = nullptr;
    snd_mixer_selem_id_alloca(&id);
    for (const char* name : NamesOf(line)) {
        snd_mixer_selem_id_set_name(id, name);
        snd_mixer_selem_id_set_index(id, 0);
        snd_mixer_elem_t* element = snd_mixer_find_selem(mixer, id);
        if (element != nullptr && wanted(element) != Direction::none) {
            return element;
        }
    }
    return nullptr;
}

snd_mixer_elem_t* Mixer::State::Wave() {
    snd_mixer_elem_t* element = Find(MixerLine::waveOutput, &VolumeDirection);
    return element != nullptr && VolumeDirection(element) == Direction::playback && RangeOf(element) ? element
                                                                                                     : nullptr;
}

std::optional<RawLevel> Mixer::State::Read(snd_mixer_elem_t* element) {
    RawLevel level;
    if (snd_mixer_selem_get_playback_volume(element, SND_MIXER_SCHN_FRONT_LEFT, &level.left) < 0) {
        return std::nullopt;
    }
    if (snd_mixer_selem_has_playback_channel(element, SND_MIXER_SCHN_FRONT_RIGHT) == 0 ||
        snd_mixer_selem_get_playback_volume(element, SND_MIXER_SCHN_FRONT_RIGHT, &level.right) < 0) {
        level.right = level.left;
    }
    return level;
}

void Mixer::State::Write(snd_mixer_elem_t* element, RawLevel level) {
    const long louder = std::max(level.left, level.right);
    if (level.left == level.right || snd_mixer_selem_is_playback_mono(element) != 0) {
        snd_mixer_selem_set_playback_volume_all(element, louder);
        return;
    }
    const auto has = [](const auto& channels, int channel) {
        return std::find(channels.begin(), channels.end(), channel) != channels.end();
    };
    for (int number = 0; number <= SND_MIXER_SCHN_LAST; ++number) {
        const auto channel = static_cast<snd_mixer_selem_channel_id_t>(number);
        if (snd_mixer_selem_has_playback_channel(element, channel) != 0) {
            const long value = has(leftChannels, number)    ? level.left
                               : has(rightChannels, number) ? level.right
                                                            : louder;
            snd_mixer_selem_set_playback_volume(element, channel, value);
        }
    }
}

Mixer::Mixer() : state(std::make_unique<State>()) {}
Mixer::~Mixer() = default;

bool Mixer::Open() {
    state->Close();
    return state->Open();
}

unsigned Mixer::Openings() const {
    (void)state->Ready();
    return state->openings;
}

std::optional<LevelRange> Mixer::VolumeRange(MixerLine line) const {
    snd_mixer_elem_t* element = state->Find(line, &VolumeDirection);
    return element != nullptr ? RangeOf(element) : std::nullopt;
}

bool Mixer::HasMute(MixerLine line) const {
    return state->Find(line, &SwitchDirection) != nullptr;
}

std::optional<std::uint32_t> Mixer::Volume(MixerLine line) const {
    snd_mixer_elem_t* element = state->Find(line, &VolumeDirection);
    long level = 0;
    if (element == nullptr ||
        (VolumeDirection(element) == Direction::playback
             ? snd_mixer_selem_get_playback_volume(element, SND_MIXER_SCHN_FRONT_LEFT, &level)
             : snd_mixer_selem_get_capture_volume(element, SND_MIXER_SCHN_FRONT_LEFT, &level)) < 0) {
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(std::max(level, 0L));
}

void Mixer::SetVolume(MixerLine line, std::uint32_t level) {
    snd_mixer_elem_t* element = state->Find(line, &VolumeDirection);
    const auto range = element != nullptr ? RangeOf(element) : std::nullopt;
    if (!range) {
        return;
    }
    const auto clamped = static_cast<long>(std::clamp(level, range->minimum, range->maximum));
    if (VolumeDirection(element) == Direction::playback) {
        snd_mixer_selem_set_playback_volume_all(element, clamped);
    } else {
        snd_mixer_selem_set_capture_volume_all(element, clamped);
    }
}

std::optional<bool> Mixer::Mute(MixerLine line) const {
    snd_mixer_elem_t* element = state->Find(line, &SwitchDirection);
    int on = 0;
    if (element == nullptr || (SwitchDirection(element) == Direction::playback
                                   ? snd_mixer_selem_get_playback_switch(element, SND_MIXER_SCHN_FRONT_LEFT, &on)
                                   : snd_mixer_selem_get_capture_switch(element, SND_MIXER_SCHN_FRONT_LEFT, &on)) < 0) {
        return std::nullopt;
    }
    return on == 0;
}

void Mixer::SetMute(MixerLine line, bool muted) {
    snd_mixer_elem_t* element = state->Find(line, &SwitchDirection);
    if (element == nullptr) {
        return;
    }
    if (SwitchDirection(element) == Direction::playback) {
        snd_mixer_selem_set_playback_switch_all(element, muted ? 0 : 1);
    } else {
        snd_mixer_selem_set_capture_switch_all(element, muted ? 0 : 1);
    }
}

std::optional<std::uint32_t> Mixer::WaveLevel() const {
    snd_mixer_elem_t* element = state->Wave();
    const auto raw = element != nullptr ? State::Read(element) : std::nullopt;
    if (!raw) {
        return std::nullopt;
    }
    if (state->waveSet && *raw == state->waveRaw) {
        return state->waveSet;
    }
    state->waveSet.reset();
    const auto range = *RangeOf(element);
    const auto scaled = [&](long value) {
        const long span = range.maximum - range.minimum;
        const long above = std::clamp(value - static_cast<long>(range.minimum), 0L, span);
        return static_cast<std::uint32_t>((above * loudest + span / 2) / span);
    };
    return (scaled(raw->right) << 16U) + scaled(raw->left);
}

void Mixer::SetWaveLevel(std::uint32_t level) {
    snd_mixer_elem_t* element = state->Wave();
    if (element == nullptr) {
        return;
    }
    const auto range = *RangeOf(element);
    const auto scaled = [&](long value) {
        const long span = range.maximum - range.minimum;
        return (value * span + loudest / 2) / loudest + static_cast<long>(range.minimum);
    };
    State::Write(element, {scaled(level & 0xFFFFU), scaled(level >> 16U)});
    state->waveSet.reset();
    if (state->Ready()) {
        if (const auto raw = State::Read(element)) {
            state->waveSet = level;
            state->waveRaw = *raw;
        }
    }
}

}  // namespace zvr
