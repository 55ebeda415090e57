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
#include "skin/placeholders.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

struct SampleRow {
    std::string_view text;
    ListIcon icon;
};

void FillList(Control* list, std::initializer_list<SampleRow> rows) {
    if (list == nullptr) {
        return;
    }
    list->grid->Clear();
    int number = 0;
    for (const SampleRow& row : rows) {
        list->grid->AddRow(row.text, number++, row.icon);
    }
    list->grid->Select(std::min(3, list->grid->RowCount()));
}

void FillBox(Control* box, std::string_view text) {
    if (box != nullptr) {
        box->SetText(text);
    }
}

void FillLabel(Control& label) {
    if (label.Tag() == "**MESSAGEBOXTEXT**") {
        label.caption = std::string("Shall the playlist \"Evening Drive\" be deleted? The files stay where they are.");
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

}  // namespace

void FillWithSamples(Program& program) {
    using enum ListIcon;
    for (Form* form : program.ModuleForms()) {
        for (Control* control : form->Controls()) {
            if (control->kind == ControlKind::label) {
                FillLabel(*control);
            }
        }
    }
    FillList(program.mediaplayer.medialist, {{"..", folder},
                                             {"Albums", folder},
                                             {"Evening Drive.mp3", playing},
                                             {"Long Way Home.mp3", audio},
                                             {"Summer Rain.flac", audio},
                                             {"Over the Pass.mp4", video}});
    FillList(program.playlists.playlistlist, {{"Evening Drive", audio}, {"Children", audio}, {"Speech", audio}});
    FillList(program.mediasearch.resultlist, {{"Evening Drive.mp3", audio}, {"Evening Rain.mp3", audio}});
    FillList(program.gallery.imglist, {{"..", folder}, {"Summer", folder}, {"Lake.jpg", image}, {"Pass.jpg", image}});
    FillList(program.phone.phonebooklist, {{"Anna", home}, {"Anna", mobile}, {"Garage", work}, {"Office", fax}});
    FillList(program.externalapps.applist, {{"Navigation", other}, {"Weather", other}});
    FillBox(program.playlists.txtCurrentPlaylistName, "Evening Drive");
    FillBox(program.mediasearch.txtSearchTerm, "evening");
    FillBox(program.phone.numberbox, "+49 89 1234567");
    FillBox(program.smsbox.smsnumberbox, "+49 89 1234567");
    FillBox(program.smsbox.smstextbox, "I will be there in half an hour. Please start without me.");
    FillSliders(program.mediaplayer);
    // The sample is a question: its answer buttons show, the one of plain news does not.
    program.commanddispatcher.ShowButton(program.messagebox.form, "messagebox.ok", false);
}

}  // namespace zvr
