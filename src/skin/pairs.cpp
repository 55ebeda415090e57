#include "skin/pairs.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/program.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "system/clsvolume.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

using P = const Program;

// A mode shows its state: the button that switches it off is the one that is drawn lit. Play and pause, day and night
// show what they do, as on every other machine.
constexpr auto pairs = std::to_array<ButtonPair>({
    {"mediaplayer.play", "mediaplayer.pause",
     [](P& p) { return p.mediaplayer.wmp.CurrentState() == PlayState::playing; }, "while it plays"},
    {"mediaplayer.mode.shuffle", "mediaplayer.mode.repeat", [](P& p) { return p.mediaplayer.wmp.GetMode("shuffle"); },
     "in random order"},
    {"mediaplayer.volumemute", "mediaplayer.volumemute",
     [](P& p) { return p.sysvolume.useWaveVolumeOnly ? p.mixerLines.WaveInMute() : p.mediaplayer.wmp.Mute(); },
     "while the player is mute"},
    {"app.volumemute", "app.volumemute", [](P& p) { return p.mixerLines.WaveInMute(); }, "while the machine is mute"},
    {"mediaplayer.add2playlist", "mediaplayer.removefromplaylist", [](P& p) { return p.mediaplayer.showingPlaylist; },
     "while the list shows a playlist"},
    {"gallery.slideshowon", "gallery.slideshowoff", [](P& p) { return p.gallery.tmrSlideshow.Enabled(); },
     "while pictures change by themselves"},
    {"app.night", "app.day", [](P& p) { return !p.godfather.brightnessIsDay; }, "by night"},
});

/// Of buttons with one command on one spot the first one in the skin is `on`, the last one is at rest.
void SendTwinBehind(Form& form, std::string_view command, bool on) {
    std::vector<Control*> twins;
    for (Control* control : form.Controls()) {
        if (control->Tag() == command && control->visible) {
            twins.push_back(control);
        }
    }
    for (Control* twin : twins) {
        for (Control* other : twins) {
            if (twin != other && twin->Place() == other->Place() && (twin->index < other->index) != on) {
                form.SendToBack(*twin);
            }
        }
    }
}

}  // namespace

std::span<const ButtonPair> ButtonPairs() {
    return pairs;
}

bool IsTogglePair(std::string_view a, std::string_view b) {
    return std::any_of(pairs.begin(), pairs.end(), [&](const ButtonPair& pair) {
        return (pair.off == a && pair.on == b) || (pair.off == b && pair.on == a);
    });
}

void ShowPair(Program& program, const ButtonPair& pair, bool on) {
    if (pair.off != pair.on) {
        program.commanddispatcher.SendButtonBehind(on ? pair.off : pair.on);
        return;
    }
    for (Form* form : program.ModuleForms()) {
        SendTwinBehind(*form, pair.on, on);
    }
}

void PairStates::Refresh(Program& program) {
    static_assert(pairs.size() <= std::tuple_size_v<decltype(isOn)>);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (const bool on = pairs[i].isOn(program); on != isOn[i]) {
            isOn[i] = on;
            ShowPair(program, pairs[i], on);
        }
    }
}

void PairStates::RefreshAll(Program& program) {
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        isOn[i] = pairs[i].isOn(program);
        ShowPair(program, pairs[i], isOn[i]);
    }
}

}  // namespace zvr
