#include "skin/check/samples.h"

#include "apps/externalapps.h"
#include "core/commanddispatcher.h"
#include "core/messagebox.h"
#include "core/program.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "radiogps/gps.h"
#include "skin/pairs.h"
#include "skin/placeholders.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

struct SampleRow {
    std::string_view text;
    ListIcon icon;
};

constexpr std::string_view message = "Shall the playlist \"Evening Drive\" be deleted? The files stay where they are.";
constexpr std::string_view longMessage =
    "The folder /media/driver/Collection/Long Journeys/Evening Drive and the Long Way Home/Part 2/ can't be copied: "
    "there is no room left on the device. What was copied up to here stays where it is, and nothing is deleted.";
constexpr std::string_view longName =
    "Evening Drive and the Long Way Home through the Hills in Summer Rain, Part 2.flac";

/// Long rows are longer than any list is wide, and each has an end of its own.
void FillList(Control* list, const SampleState& state, std::initializer_list<SampleRow> rows) {
    if (list == nullptr) {
        return;
    }
    list->grid->Clear();
    int number = 0;
    for (const SampleRow& row : rows) {
        const std::string text = (state.longest ? std::string(longName) + ", " : "") + std::string(row.text);
        list->grid->AddRow(text, number++, row.icon);
    }
    list->grid->Select(std::min(3, list->grid->RowCount()));
}

void FillBox(Control* box, std::string_view text) {
    if (box != nullptr) {
        box->SetText(text);
    }
}

void FillLabel(Control& label, const SampleState& state) {
    if (label.Tag() == "**MESSAGEBOXTEXT**") {
        label.overflow = Overflow::fit;
        label.caption = std::string(state.longest ? longMessage : message);
        return;
    }
    if (state.muted && (label.Tag() == "**MEDIAVOLUME**" || label.Tag() == "**WAVEVOLUME**")) {
        label.caption = std::string("Mute");
        return;
    }
    if (label.Tag() == "**MEDIATITLE**") {
        label.caption =
            WithoutBreaks(sampleTitle.substr(0, static_cast<std::size_t>(std::max(0, label.titleCharacters))));
        return;
    }
    for (const Placeholder& row : Placeholders()) {
        if (row.token == label.Tag()) {
            label.caption = WithoutBreaks(row.longest);
        }
    }
}

void FillSliders(MediaPlayer& player) {
    const std::array<std::pair<Control*, Control*>, 2> sliders{
        {{player.picPosition, player.picPosSlider}, {player.picVolume, player.picVolSlider}}};
    for (const auto& [track, knob] : sliders) {
        if (track != nullptr && knob != nullptr) {
            knob->left = Centred(track->width, knob->width);
        }
    }
}

/// Keys as under a finger, and pairs as the state wants them.
void FillKeys(Program& program, const SampleState& state) {
    for (const ButtonPair& pair : ButtonPairs()) {
        const bool mute = pair.off.ends_with(".volumemute");
        if ((mute && state.muted) || (state.playing && pair.off == "mediaplayer.play")) {
            ShowPair(program, pair, true);
        }
    }
    for (const Form* form : program.ModuleForms()) {
        for (Control* control : form->Controls()) {
            if (state.pressed && control->activePicture != nullptr) {
                control->picture = control->activePicture;
            }
        }
    }
}

}  // namespace

void FillWithSamples(Program& program, const SampleState& state) {
    using enum ListIcon;
    for (Form* form : program.ModuleForms()) {
        for (Control* control : form->Controls()) {
            if (control->kind == ControlKind::label) {
                FillLabel(*control, state);
            }
        }
    }
    FillList(program.mediaplayer.medialist, state,
             {{"..", folder},
              {"Albums", folder},
              {"Evening Drive.mp3", playing},
              {"Long Way Home.mp3", audio},
              {"Summer Rain.flac", audio},
              {"Over the Pass.mp4", video}});
    FillList(program.playlists.playlistlist, state, {{"Evening Drive", audio}, {"Children", audio}, {"Speech", audio}});
    FillList(program.mediasearch.resultlist, state, {{"Evening Drive.mp3", audio}, {"Evening Rain.mp3", audio}});
    FillList(program.gallery.imglist, state,
             {{"..", folder}, {"Summer", folder}, {"Lake.jpg", image}, {"Pass.jpg", image}});
    FillList(program.phone.phonebooklist, state, {{"Anna", home}, {"Anna", mobile}, {"Garage", work}, {"Office", fax}});
    FillList(program.externalapps.applist, state, {{"Navigation", none}, {"Weather", none}});
    FillBox(program.playlists.txtCurrentPlaylistName, "Evening Drive");
    FillBox(program.mediasearch.txtSearchTerm, "evening");
    FillBox(program.phone.numberbox, "+49 89 1234567");
    FillBox(program.smsbox.smsnumberbox, "+49 89 1234567");
    FillBox(program.smsbox.smstextbox, "I will be there in half an hour. Please start without me.");
    if (state.longest) {
        FillBox(program.playlists.txtCurrentPlaylistName, longName);
        FillBox(program.mediasearch.txtSearchTerm, longName);
    }
    FillSliders(program.mediaplayer);
    FillKeys(program, state);
    program.gps.SetSpeed(87);
    // The sample is a question: its answer buttons show, the one of plain news does not.
    program.commanddispatcher.ShowButton(program.messagebox.form, "messagebox.ok", false);
}

}  // namespace zvr
