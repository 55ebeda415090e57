#include "options/placechooser.h"

#include "core/dialogqueue.h"
#include "core/program.h"
#include "platform/applications.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "platform/textmeasure.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr Color listIcon = RgbColor(0xBB, 0xA8, 0x94);  // one ink serves day, night and the chosen row
constexpr Milliseconds timeToSeeRows{300};
constexpr int placesWidth = 212;
constexpr int rowHeight = 60;
constexpr int headHeight = 68;
constexpr Milliseconds stickInterval{1000};
constexpr std::string_view stepMark = "  \xE2\x80\xBA  ";  // between two folders of the path
/// A place that is no folder: what the machine's menus offer.
constexpr std::string_view installedPrograms = "programs:/";
constexpr std::string_view leftOut = "\xE2\x80\xA6";
constexpr std::array<std::string_view, 6> pictureEndings{".jpg", ".jpeg", ".png", ".gif", ".bmp", ".swf"};

bool IsPicture(std::string_view name) {
    const std::string lower = text::Lower(name);
    return std::any_of(pictureEndings.begin(), pictureEndings.end(),
                       [&lower](std::string_view ending) { return lower.ends_with(ending); });
}

std::string WithSeparator(std::string path) {
    if (!path.ends_with(files::separator)) {
        path += files::separator;
    }
    return path;
}

const char* IconOfDrive(DriveType type) {
    switch (type) {
        case DriveType::removable:
            return "list-removable";
        case DriveType::fixed:
            return "list-fixed";
        case DriveType::optical:
            return "list-cdrom";
        case DriveType::network:
            break;
    }
    return "list-network";
}

}  // namespace

PlaceChooser::PlaceChooser(Program& program, std::string formName)
    : form(std::move(formName)),
      program(program),
      parts(program, form),
      tmrSticks(program.platform.loop, [this] { LookForSticks(); }) {
    tmrSticks.SetInterval(stickInterval);
    form.onKeyDown = [this](const KeyEvent& key) {
        if (key.key == Key::escape) {
            Later([this] { Close(); });
        }
    };
    program.stage.Add(form);
}

/// From the loop: what was touched goes with the next Build.
void PlaceChooser::Later(std::function<void()> task) {
    program.platform.loop.Post(lifetime.Guard([this, task = std::move(task)] {
        if (program.dialogs.IsOpenBelow(form)) {
            task();
        }
    }));
}

void PlaceChooser::Open(Picks newPicks, const std::string& present, Done newDone) {
    if (program.dialogs.IsOpenBelow(form) || program.dialogs.modalBoxOpen()) {
        return;
    }
    picks = newPicks;
    done = std::move(newDone);
    places = PlacesNow();
    firstPlace = 0;
    std::string begin = picks == Picks::folder ? present : files::FolderOf(present);
    if (begin.empty() || !files::IsFolder(begin)) {
        begin = picks == Picks::picture   ? files::PicturesFolder()
                : picks == Picks::folder  ? files::MusicFolder()
                : picks == Picks::program ? std::string(installedPrograms)
                                          : files::HomeFolder();
    }
    GoTo(WithSeparator(begin));
    program.dialogs.OpenBelow(form, [this] { Build(); });
    tmrSticks.Start();
}

void PlaceChooser::Accept() {
    if (!program.dialogs.IsOpenBelow(form) || (picks != Picks::folder && marked.empty())) {
        return;
    }
    std::string chosen = folder + (picks == Picks::folder ? "" : marked);
    if (folder == installedPrograms) {
        const auto entry =
            std::find_if(entries.begin(), entries.end(), [this](const Entry& one) { return one.name == marked; });
        chosen = entry == entries.end() ? "" : entry->commandLine;
    }
    if (picks == Picks::folder && chosen.size() > 1) {
        chosen.pop_back();  // settings name folders without the separator
    }
    const Done take = done;
    Close();
    take(chosen);
}

void PlaceChooser::Close() {
    if (program.dialogs.IsOpenBelow(form)) {
        tmrSticks.Stop();
        lifetime.Renew();
        program.dialogs.CloseBelow(form);
        parts.Forget();
        entries.clear();
    }
}

std::vector<PlaceChooser::Place> PlaceChooser::PlacesNow() const {
    std::vector<Place> found;
    const auto add = [&found](std::string name, const char* icon, const std::string& path) {
        const bool known = std::any_of(found.begin(), found.end(), [&](const Place& p) { return p.path == path; });
        if (!known) {
            found.push_back({std::move(name), icon, path});
        }
    };
    if (picks == Picks::program) {
        add(program.languageText("OPT_CHOOSER_PROGRAMS"), "programs", std::string(installedPrograms));
    }
    add(program.languageText("OPT_CHOOSER_HOME"), "list-home", WithSeparator(files::HomeFolder()));
    if (picks == Picks::folder) {
        add(WithoutColon(program.languageText("OPT_FOLDERMEDIAPLAYER_AUDIO")), "list-audio",
            WithSeparator(files::MusicFolder()));
    }
    if (picks == Picks::folder || picks == Picks::picture) {
        add(WithoutColon(program.languageText("OPT_FOLDERGALLERY_IMAGES")), "list-image",
            WithSeparator(files::PicturesFolder()));
    }
    for (const Drive& drive : program.platform.drives.List()) {
        const std::string named = drive.path.substr(0, drive.path.size() - 1);
        const std::string name =
            named.empty() ? program.languageText("OPT_CHOOSER_COMPUTER") : named.substr(files::FolderOf(named).size());
        add(name, IconOfDrive(drive.type), drive.path);
    }
    return found;
}

std::vector<PlaceChooser::Entry> PlaceChooser::EntriesNow() const {
    std::vector<Entry> found;
    if (folder == installedPrograms) {
        for (Application& one : ApplicationsIn(ApplicationFolders(), program.usedLanguage)) {
            found.push_back({std::move(one.name), false, std::move(one.commandLine)});
        }
        return found;
    }
    (void)files::Enumerate(folder, [&](const files::Found& entry) {
        const bool isFolder = (entry.attributes & files::attributeDirectory) != 0;
        const bool fits = isFolder || (picks == Picks::picture ? IsPicture(entry.name) : picks != Picks::folder);
        if (fits && entry.name != ".." && (entry.attributes & files::attributeHidden) == 0) {
            found.push_back({std::string(entry.name), isFolder, {}});
        }
        return true;
    });
    std::vector<std::pair<std::string, std::size_t>> order;
    for (std::size_t i = 0; i < found.size(); ++i) {
        order.emplace_back((found[i].isFolder ? "0" : "1") + text::SortKeyWithoutCase(found[i].name), i);
    }
    std::sort(order.begin(), order.end());
    std::vector<Entry> sorted;
    sorted.reserve(found.size());
    for (const auto& [key, number] : order) {
        sorted.push_back(std::move(found[number]));
    }
    return sorted;
}

void PlaceChooser::GoTo(std::string newFolder) {
    folder = std::move(newFolder);
    entries = EntriesNow();
    marked.clear();
    page = 0;
    place = 0;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (folder.starts_with(places[i].path) && places[i].path.size() > longest) {
            place = i;
            longest = places[i].path.size();
        }
    }
}

/// A stick that is put in joins the places, one that is pulled leaves them, and what it showed with it.
void PlaceChooser::LookForSticks() {
    std::vector<Place> now = PlacesNow();
    if (now == places) {
        return;
    }
    const bool gone = std::find(now.begin(), now.end(), places[place]) == now.end();
    places = std::move(now);
    firstPlace = 0;
    if (gone) {
        GoTo(places.front().path);
    } else {
        const int shown = page;
        const std::string kept = marked;
        GoTo(folder);
        page = shown;
        marked = kept;
    }
    Build();
}

int PlaceChooser::Pages() const {
    return std::max(1, (static_cast<int>(entries.size()) + rowsOnPage - 1) / rowsOnPage);
}

std::string PlaceChooser::IconOf(const Entry& entry) const {
    return entry.isFolder               ? "list-folder"
           : !entry.commandLine.empty() ? "programs"
           : IsPicture(entry.name)      ? "list-image"
                                        : "list-file";
}

void PlaceChooser::Build() {
    parts.Begin();
    MakePlaces();
    const Rect ground = parts.PageBeside(look.Scaled(placesWidth));
    Control& list = parts.AddWell("lstEntries", ground);
    list.role = "list";
    list.caption = folder;
    const int room = ground.height - look.Scaled(headHeight) - look.Scaled(4);
    rowsOnPage = std::max(1, room / look.Scaled(rowHeight));
    page = std::clamp(page, 0, Pages() - 1);
    const int head = look.Scaled(headHeight);
    MakePath({ground.x, ground.y, ground.width, head});
    const int first = page * rowsOnPage;
    for (int i = 0; i < rowsOnPage && first + i < static_cast<int>(entries.size()); ++i) {
        const int top = ground.y + head + room * i / rowsOnPage;
        const int bottom = ground.y + head + room * (i + 1) / rowsOnPage;
        MakeRow({ground.x + look.Scaled(4), top, ground.width - look.Scaled(20), bottom - top},
                entries[static_cast<std::size_t>(first + i)], i + 1);
    }
    parts.AddMarks({ground.x, ground.y + head - look.Scaled(8), ground.width, ground.height - head + look.Scaled(8)},
                   Pages(), page);
    const auto turn = [this](int by) {
        return [this, by] {
            Later([this, by] {
                page += by;
                Build();
            });
        };
    };
    const bool mayAccept = picks == Picks::folder || !marked.empty();
    const bool mayGoUp = folder.size() > places[place].path.size();
    parts.AddFoot(ground, {
                              {"cmdOK", "ok", program.languageText("OPT_BUTTON_OK"), KeyStyle::primary,
                               [this] { Later([this] { Accept(); }); }, mayAccept},
                              {"cmdCancel", "close", program.languageText("OPT_BUTTON_CANCEL"), KeyStyle::raised,
                               [this] { Later([this] { Close(); }); }},
                              {"cmdFolderUp", "folder-up", "", KeyStyle::quiet,
                               [this] {
                                   Later([this] {
                                       GoTo(files::FolderOf(folder.substr(0, folder.size() - 1)));
                                       Build();
                                   });
                               },
                               mayGoUp},
                              {"cmdPageUp", "page-up", "", KeyStyle::quiet, turn(-1), page > 0},
                              {"cmdPageDown", "page-down", "", KeyStyle::quiet, turn(1), page + 1 < Pages()},
                          });
}

Control& PlaceChooser::MakeTarget(const char* name, Rect where, int number, Color ground,
                                  std::function<void()> onClick) {
    Control& target = parts.AddPlate(name, where, {ground, ground, 0, look.Scaled(8), 0, true}, number);
    target.role = "row";
    const auto rest = target.plate.get();
    target.events.onDown = [this, &target](Point) {
        target.plate = {look.keyHigh, look.keyHigh, look.silver, look.Scaled(8), 1, true};
    };
    target.events.onUp = [&target, rest](Point) { target.plate = rest; };
    target.events.onClick = [this, onClick = std::move(onClick)](Point) { Later(onClick); };
    return target;
}

void PlaceChooser::MakePlaces() {
    const int height = form.Place().height - 2 * look.margin;
    const Rect panel{look.margin, look.margin, look.Scaled(placesWidth), height};
    parts.AddWell("lstPlaces", panel);
    const int head = look.Scaled(40);
    parts.AddText({panel.x + look.Scaled(16), panel.y, panel.width - look.Scaled(32), head},
                  program.languageText("OPT_CHOOSER_PLACES"), look.dim, 15, true);
    parts.AddLine(panel.x, panel.y + head - 1, panel.width);
    const int count = static_cast<int>(places.size());
    const int row = look.Scaled(rowHeight);
    int shown = (height - head - look.Scaled(4)) / row;
    if (count > shown) {
        shown = (height - head - look.Scaled(4 + 56)) / row;
        const auto scroll = [this, shown, count](int by) {
            return [this, shown, count, by] {
                Later([this, shown, count, by] {
                    firstPlace = std::clamp(firstPlace + by * std::max(1, shown - 1), 0, count - shown);
                    Build();
                });
            };
        };
        const int half = (panel.width - look.Scaled(12)) / 2;
        const int top = panel.y + panel.height - look.Scaled(54);
        for (const bool up : {true, false}) {
            OptionKey& key = parts.AddKey();
            key.icon = up ? "up" : "down";
            key.onClick = scroll(up ? -1 : 1);
            key.Make(form, up ? "lstPlacesUp" : "lstPlacesDown", 0,
                     {up ? panel.x + look.Scaled(4) : panel.x + panel.width - half - look.Scaled(4), top, half,
                      look.Scaled(50)},
                     look);
            key.Enable(up ? firstPlace > 0 : firstPlace + shown < count);
        }
    }
    for (int i = 0; i < shown && firstPlace + i < count; ++i) {
        const auto number = static_cast<std::size_t>(firstPlace + i);
        const Place& shownPlace = places[number];
        const bool chosen = number == place;
        const Rect where{panel.x + look.Scaled(4), panel.y + head + i * row, panel.width - look.Scaled(8), row};
        Control& target =
            MakeTarget("place", where, i + 1, chosen ? look.accentDeep : look.well, [this, path = shownPlace.path] {
                GoTo(path);
                Build();
            });
        target.caption = shownPlace.name;
        target.SetTag(chosen ? "1" : "0");
        parts.AddIcon(shownPlace.icon, where, 12, 28, listIcon, &target);
        parts.AddText({where.x + look.Scaled(52), where.y, where.width - look.Scaled(56), where.height},
                      shownPlace.name, chosen ? look.onDeep : look.text, 18);
    }
}

/// "STICK > Music > Evening": all but the last in dim, and the first ones left out where the room is too narrow.
void PlaceChooser::MakePath(Rect head) {
    const Place& base = places[place];
    parts.AddIcon(base.icon, head, 16, 28, listIcon, nullptr);
    parts.AddLine(head.x, head.y + head.height - 1, head.width);
    std::vector<std::string> steps{base.name};
    for (const std::string_view step :
         text::Split(std::string_view(folder).substr(std::min(base.path.size(), folder.size())), files::separator)) {
        if (!step.empty()) {
            steps.emplace_back(step);
        }
    }
    const std::string last = steps.back();
    steps.pop_back();
    Rect room{head.x + look.Scaled(56), head.y, head.width - look.Scaled(76), head.height};
    const Font lastFont = look.TextFont(17, true);
    const Font font = look.TextFont(17);
    const auto joined = [&steps](std::size_t from) {
        std::string all = from > 0 ? std::string(leftOut) + std::string(stepMark) : "";
        for (std::size_t i = from; i < steps.size(); ++i) {
            all += steps[i] + std::string(stepMark);
        }
        return all;
    };
    const int forLast = std::min(TextSize(lastFont, last).width + 4, room.width);
    std::size_t from = 0;
    while (from < steps.size() && TextSize(font, joined(from)).width + 4 + forLast > room.width) {
        ++from;
    }
    const std::string before = joined(from);
    if (const int width = TextSize(font, before).width + 4;
        !before.empty() && width < room.width / 2 + room.width / 3) {
        parts.AddText({room.x, room.y, width, room.height}, before, look.dim);
        room.x += width;
        room.width -= width;
    }
    parts.AddText(room, last, look.text, 17, true);
}

void PlaceChooser::MakeRow(Rect where, const Entry& entry, int number) {
    const bool chosen = !entry.isFolder && entry.name == marked;
    const Color ground = chosen ? look.accentDeep : number % 2 == 0 ? look.wellAlt : look.well;
    Control& target = MakeTarget("lstEntriesRow", where, number, ground, [this, entry, chosen] {
        if (program.platform.loop.Monotonic() < rowsSeenFrom) {
            return;  // the second tap of a pair is no choice among rows that nobody has seen
        }
        if (entry.isFolder) {
            GoTo(folder + entry.name + files::separator);
            rowsSeenFrom = program.platform.loop.Monotonic() + timeToSeeRows;
        } else if (chosen) {
            Accept();
            return;
        } else {
            marked = entry.name;
        }
        Build();
    });
    target.caption = entry.name;
    target.SetTag(chosen ? "1" : "0");
    parts.AddIcon(IconOf(entry), where, 12, 28, listIcon, &target);
    parts.AddText({where.x + look.Scaled(52), where.y, where.width - look.Scaled(60), where.height}, entry.name,
                  chosen ? look.onDeep : look.text, 18);
}

}  // namespace zvr
