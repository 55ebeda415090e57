// What a driver needs: keys that a finger reaches, texts that an eye reads, and a way out of each screen.

#include "platform/textmeasure.h"
#include "skin/check/skinchecker.h"
#include "skin/pairs.h"
#include "ui/contrast.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr int mostOverlaps = 3;      ///< that are told of one button
constexpr double leastContrast = 2;  ///< below it a text is guessed, not read

/// A message shows the one or the others of its answers, never both.
bool AreAnswers(std::string_view a, std::string_view b) {
    const auto answers = [](std::string_view ok, std::string_view other) {
        return ok == "messagebox.ok" && (other == "messagebox.yes" || other == "messagebox.no");
    };
    return answers(a, b) || answers(b, a);
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

/// A command that brings up another screen than the one that its button is on.
bool Leads(std::string_view command, std::string_view form) {
    const bool shows = command.ends_with(".show") && command.substr(0, command.size() - 5) != form;
    return shows || command == "app.goback" || command == "externalapps.backtomainmenu";
}

}  // namespace

void SkinChecker::CheckOverlaps(const std::string& form) {
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        int overlaps = 0;
        for (std::size_t j = 0; j < i && overlaps < mostOverlaps; ++j) {
            const Item& upper = buttons[i];
            const Item& lower = buttons[j];
            if (!Overlap(upper.place, lower.place) || AreAnswers(upper.command, lower.command) ||
                (upper.place == lower.place && IsTogglePair(upper.command, lower.command))) {
                continue;
            }
            ++overlaps;
            Warn(upper.element, form + "/" + upper.name, "overlaps " + lower.name + ", and they are no pair");
        }
    }
}

void SkinChecker::CheckCovered(const std::string& form) {
    for (const std::vector<Item>* items : {&buttons, &labels}) {
        for (const Item& item : *items) {
            const auto cover = std::find_if(covers.begin(), covers.end(),
                                            [&](const Cover& area) { return Overlap(area.place, item.place); });
            if (cover != covers.end()) {
                Warn(item.element, form + "/" + item.name, "lies beneath " + cover->name + ", which covers it");
            }
        }
    }
}

void SkinChecker::CheckWaysOut(const SkinFormRow& row) {
    const std::string form(row.name);
    const XmlElement section = document.First(form);
    for (const std::string_view needed : row.needed) {
        if (!offered.contains(needed)) {
            Warn(section, form, "no button has the command " + std::string(needed) + ": a driver can't get out of it");
        }
    }
    if (row.leads &&
        std::none_of(offered.begin(), offered.end(), [&](std::string_view one) { return Leads(one, row.name); })) {
        Warn(section, form, "no button leads to another screen: a driver can't get out of it");
    }
    if (form == "messagebox" && !showsMessage) {
        Warn(section, form, "no label shows **MESSAGEBOXTEXT**: questions come without their text");
    }
}

void SkinChecker::CheckBoxSize(const SkinReadings& box) {
    const auto screen = SizeOf("general");
    const auto own = SizeOf(box.part.form);
    if (screen && own && (own->width > screen->width || own->height > screen->height)) {
        Warn(box.at, box.place, "is " + InPixels(*own) + ", larger than the screen of " + InPixels(*screen));
    }
}

void SkinChecker::CheckRoomForText(const SkinReadings& readings) {
    const auto elements = readings.part.elements;
    const auto has = [elements](std::string_view name) {
        return std::any_of(elements.begin(), elements.end(),
                           [name](const auto& element) { return element.name == name; });
    };
    if (!has("font-size")) {
        return;
    }
    const bool isList = has("row-height");
    const SkinReading& room = readings[isList ? "row-height" : "height"];
    const int needed = TextSize(readings.FontOver({}), "Ag").height;
    if (room.counts && room.number < needed) {
        Warn(room.element, readings.place,
             (isList ? "a row is " : "it is ") + Written(room.number) + " pixels high, its text needs " +
                 std::to_string(needed));
    }
    CheckColors(readings, "font-color", "background-color");
    if (isList) {
        CheckColors(readings, "font-color", "background-color-alt");
        CheckColors(readings, "selection-font-color", "selection-background-color");
    }
}

void SkinChecker::CheckColors(const SkinReadings& readings, std::string_view ink, std::string_view ground) {
    if (readings[ink].element && readings[ground].element &&
        Contrast(readings[ink].color, readings[ground].color) < leastContrast) {
        Warn(readings[ink].element, readings.place,
             std::string(ink) + " can hardly be told from " + std::string(ground));
    }
}

/// Of labels on a plain ground: what a picture shows behind them, nobody knows.
void SkinChecker::CheckInk(const SkinReadings& label, std::string_view form) {
    const SkinReadings section(SectionPart(), form, document, pictures);
    const bool plain = section["background-image"].picture == nullptr &&
                       pictures.Find(SkinText(document.First("general/background-image"))).picture == nullptr;
    const SkinReading& ink = label["font-color"];
    if (plain && ink.element && Contrast(ink.color, section["background-color"].color) < leastContrast) {
        Warn(ink.element, label.place, "font-color can hardly be told from the screen's background-color");
    }
}

}  // namespace zvr
