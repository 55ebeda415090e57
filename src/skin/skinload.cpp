#include "skin/skinload.h"

#include "apps/quickbars.h"
#include "core/godfather.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/splash.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "skin/buttons.h"
#include "skin/skinner.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

using State = SkinReading::State;

constexpr std::string_view runningTitle = "**MEDIATITLE**";

/// In front of the form's other buttons and labels, but never of what is a window of its own on the real screen: a
/// list, a text box, a video or picture area covers what a skin lays below it.
void PlaceInFront(Form& form, Control& element) {
    const auto& order = form.Controls();
    const auto area = std::find_if(order.begin(), order.end(), [](const Control* control) {
        return control->kind != ControlKind::image && control->kind != ControlKind::label;
    });
    if (area == order.end()) {
        form.BringToFront(element);
    } else {
        form.PlaceBehind(element, **area);
    }
}

}  // namespace

SkinLoad::SkinLoad(Program& program, std::shared_ptr<const XmlDocument> document, std::string folder)
    : program(program),
      kept(std::move(document)),
      document(*kept),
      pictures(std::move(folder), program.usedLanguage),
      number(program.skinner.Loads()) {}

bool SkinLoad::IsOver() const {
    return number != program.skinner.Loads() || program.platform.loop.IsQuitting();
}

bool SkinLoad::Report(const SkinReadings& readings) {
    const auto problems = readings.Problems();
    for (const SkinProblem& problem : problems) {
        if (!IsOver()) {
            LogSkinFault(pictures.Folder(), problem.at.Line(), readings.place, problem.reason + ", " + problem.code);
            program.skinner.ReportSkinError(problem.code);
        }
    }
    return !problems.empty();
}

void SkinLoad::Apply() {
    ApplyGeneral();
    for (const SkinFormRow& row : SkinForms()) {
        if (!IsOver() && program.isModuleActive(row.module) && row.form(program).loaded) {
            SkinForm(row);
        }
    }
    std::string_view ended;  // screen whose layout has ended
    for (const SkinPart& part : SkinParts()) {
        const SkinFormRow& row = *FindSkinForm(part.form);
        Form& form = row.form(program);
        if (!IsOver() && ended != part.form && program.isModuleActive(row.module) && form.loaded &&
            !ApplyPart(part, form)) {
            ended = part.form;
        }
    }
    // One line for all: of a skin that was copied half, hundreds would drive everything else out of the log.
    if (const auto& missing = pictures.Missing(); !missing.empty()) {
        Log::Warning("of the pictures that the skin names {} are not there, the first is {}{}", missing.size(),
                     pictures.Folder(), missing.front());
    }
}

void SkinLoad::ApplyGeneral() {
    program.skinner.CenterForms();
    const SkinReadings general(GeneralPart(), "general", document, pictures);
    const SkinReading& background = general["background-image"];
    const auto extent = [&](std::string_view name, Property<Form, double>& size) {
        if (general[name].counts) {
            size = static_cast<double>(RoundHalfEven(Twips(general[name].number)));
        }
    };
    for (Form* form : program.stage.Forms()) {
        if (!program.skinner.TakesGeneral(*form)) {
            continue;
        }
        extent("width", form->width);
        extent("height", form->height);
        form->backColor = general["background-color"].color;
        if (background.state == State::noPicture) {
            break;  // the first form has its size by now, the others don't
        }
        if (background.picture != nullptr) {
            form->background = background.picture;
        }
    }
    Report(general);
    if (!IsOver() && background.state != State::noPicture) {
        program.skinner.CenterForms();
    }
}

void SkinLoad::SkinForm(const SkinFormRow& row) {
    Form& form = row.form(program);
    SkinTarget target{program, form};
    const SkinReadings section(SectionPart(), row.name, document, pictures);
    section.Put(target);
    if (!Report(section) && MakeButtons(row, form)) {
        MakeLabels(form);
    }
}

bool SkinLoad::MakeButtons(const SkinFormRow& row, Form& form) {
    int index = 0;
    for (const XmlElement& record : document.First(form.name + "/buttons").Children()) {
        const SkinReadings button(ButtonPart(), form.name, record, pictures);
        if (button.Required() != State::good || !row.Takes(button["command"].text)) {
            continue;
        }
        if (Report(button)) {
            return false;
        }
        if (++index > mostElements) {
            break;
        }
        MakeButton(button, form, index);
    }
    return true;
}

void SkinLoad::MakeButton(const SkinReadings& readings, Form& form, int index) {
    Control* button = form.Find("abutton", index);
    if (button == nullptr) {
        button = &form.Add(ControlKind::image, "abutton", index);
        BindButton(program, *button);
    }
    SkinTarget target{program, form, button};
    readings.Put(target);
    button->visible = true;
    PlaceInFront(form, *button);
}

void SkinLoad::MakeLabels(Form& form) {
    int index = 0;
    for (const XmlElement& record : document.First(form.name + "/labels").Children()) {
        const SkinReadings readings(LabelPart(), form.name, record, pictures);
        const State required = readings.Required();
        if (required == State::malformed) {
            EndOnBadShadow(readings);
            return;
        }
        if (required != State::good) {
            continue;
        }
        if (index + 2 > mostElements) {
            break;
        }
        MakeLabel(readings, form, ++index, false);
        if (readings["shadow-distance"].number > 0 && readings["shadow-color"].element) {
            MakeLabel(readings, form, ++index, true);
        }
    }
}

void SkinLoad::MakeLabel(const SkinReadings& readings, Form& form, int index, bool isShadow) {
    Control* const known = form.Find("albl", index);
    Control& label = known != nullptr ? *known : form.Add(ControlKind::label, "albl", index);
    SkinTarget target{program, form, &label};
    label.font = readings.FontOver({});
    label.align = Align::center;
    readings.Put(target);
    const bool runs = label.Tag() == runningTitle;
    label.titleCharacters = runs ? label.titleCharacters : 0;
    label.helpId = runs ? label.titleCharacters * 100 + 1 : 0;
    label.overflow = IsMoving(label.Tag()) ? Overflow::cut : Overflow::ellipsis;
    label.visible = true;
    if (!isShadow) {
        PlaceInFront(form, label);
        return;
    }
    const double shift = Twips(readings["shadow-distance"].number);
    label.left = label.left + shift;
    label.top = label.top + shift;
    label.foreColor = readings["shadow-color"].color;
    form.PlaceBehind(label, *form.Find("albl", index - 1));
}

void SkinLoad::EndOnBadShadow(const SkinReadings& label) {
    const SkinReading& distance = label["shadow-distance"];
    const std::string_view text = distance.text;
    LogSkinFault(pictures.Folder(), distance.element.Line(), label.place,
                 "shadow-distance is no number, which ends the program");
    program.skinner.skinFailed = true;
    program.CloseSplash();
    program.platform.dialogs.ShowCritical(
        "Run-time error: type mismatch.\n\nThe skin gives a label the "
        "shadow-distance \"" +
        std::string(text::Mid(text, 0, 40)) + "\", which is not a number.");
    program.EndAtOnce(1);
}

bool SkinLoad::ApplyPart(const SkinPart& part, Form& form) {
    SkinTarget target{program, form};
    if (part.find != nullptr) {
        part.find(target);
    }
    if (part.before != nullptr) {
        part.before(program);
    }
    Control* const control = target.control;
    Grid* const grid = control == nullptr ? nullptr : control->grid.get();
    target.look = grid == nullptr ? GridLook{} : grid->Look();
    const SkinReadings readings(part, form.name, document, pictures);
    const bool placed = readings.Required() == State::good;
    const bool whole = readings.Put(target);
    if (placed && grid != nullptr) {
        grid->SetLook(target.look);
    }
    if (placed && control != nullptr) {
        control->font = readings.FontOver(control->font);
    }
    Report(readings);
    if (!IsOver() && part.after != nullptr) {
        part.after(target, readings, placed);
    }
    return whole || (!placed && !part.endsLayout);
}

}  // namespace zvr
