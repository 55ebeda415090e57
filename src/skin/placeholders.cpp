#include "skin/placeholders.h"

#include "core/language.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/tick.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/skinner.h"
#include "system/clsvolume.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"

#include <algorithm>
#include <charconv>

namespace zvr {
namespace {

constexpr std::string_view hardBlank = "\xC2\xA0";
constexpr std::string_view ringGap = " +++ ";
/// A caption that grows with each tick ends here; no label is as wide.
constexpr std::size_t longestCaption = 4096;

void AppendWithoutBreaks(std::string& text, std::string_view piece) {
    for (const char c : piece) {
        if (c == ' ') {
            text += hardBlank;
        } else {
            text += c;
        }
    }
}

void AppendNumber(std::string& text, long value, std::size_t digits = 1) {
    std::array<char, 24> written{};
    const char* const end = std::to_chars(written.data(), written.data() + written.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - written.data());
    text.append(length < digits ? digits - length : 0, '0');
    text.append(written.data(), length);
}

/// The root of all is its own last part.
std::string_view LastPart(std::string_view path) {
    const std::size_t begin = path.rfind(files::separator) + 1;
    return begin == path.size() ? path : path.substr(begin);
}

/// The last part of a path that isn't empty, else the text of the key.
void AppendLastPart(Program& program, const std::string& path, std::string_view keyIfEmpty, std::string& text) {
    AppendWithoutBreaks(text, path.empty() ? program.language.languageText(keyIfEmpty) : LastPart(path));
}

template <text::TimeFormat format>
void ShowMoment(Program& program, std::string& text) {
    text += program.skinner.placeholders.MomentText(program.platform.loop.Now(), format);
}

template <text::TimeFormat date, text::TimeFormat time>
void ShowDateAndTime(Program& program, std::string& text) {
    ShowMoment<date>(program, text);
    text += hardBlank;
    ShowMoment<time>(program, text);
}

/// What a medium is called. Of a path only the file's name, unless the path is hardly more than that.
std::string_view TitleOf(const Program& program, const MediaItem& media) {
    if (!program.mediaplayer.displayFilenames) {
        return media.name;
    }
    const std::string_view address = media.sourceURL;
    const auto slash = address.find(files::separator);
    const bool isPath = address.find("://") == address.npos;
    const bool hasMore = slash != address.npos && !text::Mid(address.substr(slash + 1), 1, 1).empty();
    return isPath && hasMore ? LastPart(address) : address;
}

void ShowTitle(Program& program, std::string& text) {
    const MediaItem* const media = program.mediaplayer.wmp.CurrentMedia();
    AppendWithoutBreaks(
        text, media == nullptr ? program.language.languageText("MEDIAPLAYER_READY") : TitleOf(program, *media));
}

/// All labels that a title runs through, its shadows too.
void BeginTitle(Program& program) {
    for (const Form* form : program.ModuleForms()) {
        for (Control* label : form->Controls()) {
            label->helpId = label->titleCharacters * 100;
        }
    }
}

void RunTitle(Program& program, Control& label, std::string& text) {
    text.clear();
    const MediaItem* const media = program.mediaplayer.wmp.CurrentMedia();
    if (media == nullptr) {
        ShowTitle(program, text);
        return;
    }
    TitleRing& ring = program.skinner.placeholders.title;
    if (ring.Set(TitleOf(program, *media))) {
        BeginTitle(program);
    }
    // Not from the hundreds of the number: a long title's places reach into them.
    const int count = label.titleCharacters;
    int position = label.helpId - count * 100;
    if (program.tick.IsEven()) {
        ++position;
    }
    if (position > ring.Length() || position < 1) {
        position = 1;
    }
    ring.Show(position, count, text);
    label.helpId = count * 100 + position;
}

void ShowPosition(Program& program, std::string& text) {
    const PlayQueue& wmp = program.mediaplayer.wmp;
    const MediaItem* const media = wmp.CurrentMedia();
    if (media == nullptr) {
        text += "00:00";
        return;
    }
    if (!program.mediaplayer.dispRemain) {
        const std::string position = wmp.CurrentPositionString();
        if (!position.empty()) {
            text += position;
            text += '/';
        }
        text += media->DurationString();
        return;
    }
    const double remaining = media->duration - wmp.CurrentPosition();
    if (remaining <= 0) {
        text += media->DurationString();
        return;
    }
    const long seconds = RoundHalfEven(remaining);
    text += '-';
    AppendNumber(text, seconds / 60, 2);
    text += ':';
    AppendNumber(text, seconds % 60, 2);
}

void AppendPercent(std::string& text, int percent) {
    AppendNumber(text, percent);
    text += '%';
}

void ShowMediaVolume(Program& program, std::string& text) {
    if (program.playervolume.IsMuted()) {
        text += "Mute";
        return;
    }
    const int target = program.playervolume.fadeInVolume;
    const int volume = program.playervolume.Percent();
    if (target > 0 && target != volume) {
        text += "Fade";
    } else {
        AppendPercent(text, volume);
    }
}

void ShowWaveVolume(Program& program, std::string& text) {
    if (program.mixerLines.WaveInMute()) {
        text += "Mute";
    } else {
        AppendPercent(text, program.sysvolume.waveVolume);
    }
}

void ShowListContent(Program& program, std::string& text) {
    const MediaPlayer& mediaplayer = program.mediaplayer;
    if (mediaplayer.showingPlaylist) {
        AppendLastPart(program, mediaplayer.currentPlaylistFile, "MEDIAPLAYER_NOPLAYLIST", text);
    } else {
        AppendLastPart(program, mediaplayer.currentFolder, "MEDIAPLAYER_FOLDERERROR", text);
    }
}

void ShowGalleryFolder(Program& program, std::string& text) {
    AppendLastPart(program, program.gallery.currentFolder, "GALLERY_FOLDERERROR", text);
}

void ShowRadioFrequency(Program& program, std::string& text) {
    const Radio& radio = program.radio;
    if (radio.isInSetMode) {
        text += radio.freqText;
        return;
    }
    AppendNumber(text, radio.currentFreq / 100);
    text += '.';
    AppendNumber(text, radio.currentFreq % 100, 2);
}

void ShowSearchResult(Program& program, std::string& text) {
    const MediaSearch& mediasearch = program.mediasearch;
    if (!mediasearch.mediaSearchResult.empty()) {
        AppendWithoutBreaks(text, mediasearch.mediaSearchResult);
    } else if (mediasearch.creatingIndex) {
        text += hardBlank;
        AppendWithoutBreaks(text, program.language.languageText("MEDIASEARCH_STATUS_CREATINGINDEX"));
    }
}

/// While the index is being made the caption gets longer with each tick: the driver sees that something goes on.
void GrowSearchResult(Program& program, Control&, std::string& text) {
    const MediaSearch& mediasearch = program.mediasearch;
    if (!mediasearch.mediaSearchResult.empty() || !mediasearch.creatingIndex) {
        text.clear();
        ShowSearchResult(program, text);
    } else if (text.size() < longestCaption) {
        ShowSearchResult(program, text);
    }
}

void ShowSmsLength(Program& program, std::string& text) {
    const Control* const box = program.smsbox.smstextbox;
    AppendNumber(text, box == nullptr ? 0 : static_cast<long>(text::Length(box->text->text)));
}

void ShowSpeed(Program& program, std::string& text) {
    if (program.gps.Gspeed.empty()) {
        text += "---";
        return;
    }
    text += program.gps.Gspeed;
    text += program.gps.useMetricValues ? " km/h" : " mph";
}

template <std::string Gps::*value>
void ShowGps(Program& program, std::string& text) {
    const std::string& known = program.gps.*value;
    text += known.empty() ? "---" : known;
}

template <std::string Phone::*value>
void ShowPhone(Program& program, std::string& text) {
    AppendWithoutBreaks(text, program.phone.*value);
}

void ShowUnreadSms(Program& program, std::string& text) {
    AppendNumber(text, program.phone.unreadSMS);
}

using text::TimeFormat;

// clang-format off
constexpr std::array placeholders{
    Placeholder{"**TIME_SHORT**", ShowMoment<TimeFormat::shortTime>, nullptr, "Time without seconds.", "12:59 PM"},
    Placeholder{"**TIME_LONG**", ShowMoment<TimeFormat::longTime>, nullptr, "Time with seconds.", "12:59:59 PM"},
    Placeholder{"**DATE_SHORT**", ShowMoment<TimeFormat::shortDate>, nullptr, "Date in figures.", "12/31/2026"},
    Placeholder{"**DATE_LONG**", ShowMoment<TimeFormat::longDate>, nullptr, "Date in words.",
                "Wednesday, September 30, 2026"},
    Placeholder{"**DATETIME_SHORT**", ShowDateAndTime<TimeFormat::shortDate, TimeFormat::shortTime>, nullptr,
                "Date in figures and time without seconds.", "12/31/2026 12:59 PM"},
    Placeholder{"**DATETIME_LONG**", ShowDateAndTime<TimeFormat::longDate, TimeFormat::longTime>, nullptr,
                "Date in words and time with seconds.", "Wednesday, September 30, 2026 12:59:59 PM"},
    Placeholder{"**MEDIATITLE**", ShowTitle, RunTitle, "Title of what is playing; runs through the label.", ""},
    Placeholder{"**MEDIAPOSITION**", ShowPosition, nullptr, "Position and duration, or the time that remains.",
                "1:59:59/1:59:59"},
    Placeholder{"**MEDIAVOLUME**", ShowMediaVolume, nullptr, "Volume of the player.", "100%"},
    Placeholder{"**WAVEVOLUME**", ShowWaveVolume, nullptr, "Volume of the machine.", "100%"},
    Placeholder{"**MEDIALISTCONTENT**", ShowListContent, nullptr, "Folder or playlist that the player's list shows.",
                "Music for the Evening"},
    Placeholder{"**CURRENTGALLERYFOLDER**", ShowGalleryFolder, nullptr, "Folder that the gallery shows.",
                "Pictures of the Summer"},
    Placeholder{"**RADIOFREQUENCY**", ShowRadioFrequency, nullptr, "Frequency of the radio in MHz.", "108.00"},
    Placeholder{"**MEDIASEARCHRESULT**", ShowSearchResult, GrowSearchResult, "What the search has found or is doing.",
                "10000 files found"},
    Placeholder{"**PHONEBATTERY**", ShowPhone<&Phone::phoneBattery>, nullptr, "Charge of the phone.", "100%"},
    Placeholder{"**PHONESIGNAL**", ShowPhone<&Phone::phoneSignal>, nullptr, "Signal of the phone.", "100%"},
    Placeholder{"**PHONESTATUS**", ShowPhone<&Phone::phoneStatus>, nullptr, "What the phone is doing.",
                "Disconnected"},
    Placeholder{"**SMSCHARS**", ShowSmsLength, nullptr, "Characters of the message being written.", "160"},
    Placeholder{"**UNREADSMS**", ShowUnreadSms, nullptr, "Number of messages not read yet.", "99"},
    Placeholder{"**GPS_SATNUM**", ShowGps<&Gps::Gsatnum>, nullptr, "Number of satellites.", "12"},
    Placeholder{"**GPS_SPEED**", ShowSpeed, nullptr, "Speed.", "199 km/h"},
    Placeholder{"**GPS_POSITION**", ShowGps<&Gps::Gposition>, nullptr, "Position.",
                "4807.038 N, 01131.000 W"},
    Placeholder{"**GPS_ALTITUDE**", ShowGps<&Gps::Galtitude>, nullptr, "Height above the sea in metres.", "8848.0"},
};
// clang-format on

bool LooksLikePlaceholder(std::string_view tag) {
    return tag.size() > 4 && tag.starts_with("**") && tag.ends_with("**");
}

std::size_t RowOf(std::string_view token) {
    const auto row = std::find_if(placeholders.begin(), placeholders.end(),
                                  [token](const Placeholder& candidate) { return candidate.token == token; });
    return static_cast<std::size_t>(row - placeholders.begin());
}

void FindLabels(const Form& form, PlaceholderCache::FormLabels& known) {
    known.tagRevision = form.tagRevision;
    known.labels.clear();
    for (Control* control : form.Controls()) {
        if (!LooksLikePlaceholder(control->Tag())) {
            continue;
        }
        if (const std::size_t row = RowOf(control->Tag()); row < placeholders.size()) {
            known.labels.push_back({control, row});
        }
    }
}

void RefreshLabel(Program& program, const PlaceholderCache::Label& label) {
    PlaceholderCache& cache = program.skinner.placeholders;
    const Placeholder& placeholder = placeholders[label.row];
    if (placeholder.showOn != nullptr) {
        cache.buffer = label.control->caption;
        placeholder.showOn(program, *label.control, cache.buffer);
        label.control->caption = cache.buffer;
        return;
    }
    PlaceholderCache::Value& value = cache.values[label.row];
    if (value.refresh != cache.refreshes) {
        value.refresh = cache.refreshes;
        value.text.clear();
        placeholder.show(program, value.text);
    }
    label.control->caption = value.text;
}

}  // namespace

bool TitleRing::Set(std::string_view newTitle) {
    if (title == newTitle && !starts.empty()) {
        return false;
    }
    title = newTitle;
    ring.clear();
    AppendWithoutBreaks(ring, title);
    AppendWithoutBreaks(ring, ringGap);
    starts.clear();
    for (std::size_t at = 0; at < ring.size();) {
        starts.push_back(static_cast<std::uint32_t>(at));
        at += text::Mid(std::string_view(ring).substr(at, 4), 0, 1).size();
    }
    starts.push_back(static_cast<std::uint32_t>(ring.size()));
    return true;
}

void TitleRing::Show(int position, int count, std::string& text) const {
    const auto length = static_cast<std::size_t>(Length());
    const auto first = static_cast<std::size_t>(position) - 1;
    const auto wanted = static_cast<std::size_t>(count);
    const auto append = [&](std::size_t from, std::size_t characters) {
        text.append(ring, starts[from], starts[from + characters] - starts[from]);
    };
    const std::size_t shown = std::min(wanted, length - first);
    append(first, shown);
    std::size_t missing = wanted - shown;
    for (int round = 0; round < 4 && missing > 0; ++round) {
        const std::size_t more = std::min(missing, length);
        append(0, more);
        missing -= more;
    }
}

const std::string& PlaceholderCache::MomentText(const LocalTime& now, text::TimeFormat format) {
    Moment& moment = moments[static_cast<std::size_t>(format)];
    const std::int64_t unit = now.milliseconds / (format == text::TimeFormat::longTime ? 1000 : 60'000);
    if (moment.unit != unit) {
        moment.unit = unit;
        moment.text.clear();
        AppendWithoutBreaks(moment.text, text::Format(now, format));
    }
    return moment.text;
}

std::span<const Placeholder> Placeholders() {
    return placeholders;
}

void RefreshPlaceholders(Program& program) {
    PlaceholderCache& cache = program.skinner.placeholders;
    cache.values.resize(placeholders.size());
    ++cache.refreshes;
    const auto& forms = program.ModuleForms();
    for (std::size_t i = 0; i < forms.size(); ++i) {
        const Form& form = *forms[i];
        if (!form.loaded || !program.isModuleActive(form.name)) {
            continue;
        }
        PlaceholderCache::FormLabels& known = cache.forms[i];
        if (known.tagRevision != form.tagRevision) {
            FindLabels(form, known);
        }
        for (const PlaceholderCache::Label& label : known.labels) {
            RefreshLabel(program, label);
        }
    }
}

bool IsMoving(std::string_view token) {
    const auto known = Placeholders();
    return std::any_of(known.begin(), known.end(),
                       [token](const Placeholder& row) { return row.token == token && row.showOn != nullptr; });
}

std::string PlaceholderText(Program& program, std::string_view token, bool& known) {
    const std::size_t row = RowOf(token);
    known = row < placeholders.size();
    std::string text;
    if (known) {
        placeholders[row].show(program, text);
    }
    return text;
}

std::string WithoutBreaks(std::string_view text) {
    std::string hard;
    hard.reserve(text.size());
    AppendWithoutBreaks(hard, text);
    return hard;
}

}  // namespace zvr
