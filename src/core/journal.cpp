#include "core/journal.h"

#include "core/godfather.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/mediaplayer.h"
#include "media/playerstate.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "system/playervolume.h"

#include <algorithm>
#include <charconv>
#include <utility>
#include <vector>

namespace zvr {
namespace {

constexpr std::string_view journalHead = "zVR journal 2\n";
constexpr std::string_view updateHead = "zVR journal update 2\n";
constexpr Milliseconds regularInterval{10'000};
constexpr Milliseconds retryInterval{500};

/// One part: its length in bytes, a line end, the bytes.
std::string Part(std::string_view content) {
    return std::to_string(content.size()) + "\n" + std::string(content);
}

std::string Part(std::uint64_t number) {
    return Part(std::to_string(number));
}

std::optional<std::string> TakePart(std::string_view& text) {
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    const auto digits = static_cast<std::size_t>(end - text.data());
    if (error != std::errc{} || digits == text.size() || *end != '\n' || length > text.size() - digits - 1) {
        return std::nullopt;
    }
    std::string content(text.substr(digits + 1, length));
    text.remove_prefix(digits + 1 + length);
    return content;
}

/// All parts behind the head; none at all if the head is another or something is missing.
std::vector<std::string> Parts(std::string_view text, std::string_view head) {
    std::vector<std::string> parts;
    if (!text.starts_with(head)) {
        return parts;
    }
    text.remove_prefix(head.size());
    while (!text.empty()) {
        auto part = TakePart(text);
        if (!part) {
            return {};
        }
        parts.push_back(std::move(*part));
    }
    return parts;
}

std::uint64_t Number(std::string_view text) {
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

int Percent(std::string_view text) {
    return static_cast<int>(std::min<std::uint64_t>(Number(text), 100));
}

/// 0 for a file that isn't there.
std::uint64_t FileFingerprint(const std::string& path) {
    const auto content = files::Read(path);
    return content ? Fingerprint(*content) : 0;
}

}  // namespace

std::uint64_t Fingerprint(std::string_view content) {
    std::uint64_t hash = 0xcbf29ce484222325U;  // FNV-1a
    for (const char c : content) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    return hash;
}

std::string JournalText(const JournalContent& content) {
    std::string text = std::string(journalHead) + Part(content.settingsFile) +
                       Part(static_cast<std::uint64_t>(content.fadeInVolume)) + Part(content.settings);
    if (content.items) {
        text += Part(content.current) + Part(*content.items);
    }
    return text;
}

std::string JournalUpdateText(std::uint64_t journal, const JournalContent& before, const JournalContent& now) {
    std::string text = std::string(updateHead) + Part(journal) + Part(now.settingsFile) +
                       Part(static_cast<std::uint64_t>(now.fadeInVolume)) + Part(now.current);
    if (now.settings != before.settings) {
        text += Part(now.settings);
    }
    return text;
}

std::optional<JournalContent> ParseJournal(std::string_view journal, std::string_view update) {
    std::vector<std::string> parts = Parts(journal, journalHead);
    if (parts.size() != 3 && parts.size() != 5) {
        return std::nullopt;
    }
    JournalContent content{std::move(parts[2]), Number(parts[0]), Percent(parts[1]), {}, {}};
    if (parts.size() == 5) {
        content.current = std::move(parts[3]);
        content.items = std::move(parts[4]);
    }
    std::vector<std::string> changes = Parts(update, updateHead);
    if ((changes.size() == 4 || changes.size() == 5) && Number(changes[0]) == Fingerprint(journal)) {
        content.settingsFile = Number(changes[1]);
        content.fadeInVolume = Percent(changes[2]);
        content.current = std::move(changes[3]);
        if (changes.size() == 5) {
            content.settings = std::move(changes[4]);
        }
    }
    return content;
}

Journal::Journal(Program& program)
    : program(program),
      tmrRegular(program.platform.loop, [this] { Write(); }),
      tmrRetry(program.platform.loop, [this] { Write(); }) {
    tmrRegular.SetInterval(regularInterval);
    tmrRetry.SetInterval(retryInterval);
}

Journal::~Journal() {
    Flush();
}

std::string Journal::Path() const {
    return program.place.folder + "/journal.dat";
}

std::string Journal::UpdatePath() const {
    return program.place.folder + "/journal-update.dat";
}

void Journal::RemoveFiles() const {
    // In this order: a journal without its update would be taken for one that is older than it is.
    (void)files::Remove(Path());
    (void)files::Remove(UpdatePath());
}

void Journal::Recover() {
    const auto journal = files::Read(Path());
    const auto content =
        journal ? ParseJournal(*journal, files::Read(UpdatePath()).value_or("")) : std::optional<JournalContent>{};
    if (journal && !content) {
        Log::Warning("{} is no whole journal; what the last run left is lost", Path());
    }
    if (content) {
        program.playervolume.fadeInVolume = content->fadeInVolume;
        const bool edited = FileFingerprint(program.SettingsFile()) != content->settingsFile;
        if (edited) {
            Log::Note("{} was edited since the journal was written, and stays", program.SettingsFile());
        }
        const bool settingsFailed = !edited && !WriteSettingsFile(program, content->settings).empty();
        const bool stateFailed =
            content->items &&
            !files::WriteAtomic(StateFile(program.place.folder), content->current + *content->items).empty();
        if (settingsFailed || stateFailed) {
            return;  // a full card now may have room at the next start
        }
    }
    RemoveFiles();
}

void Journal::Start() {
    if (std::exchange(running, true)) {
        return;
    }
    tmrRegular.Start();
    Write();
}

void Journal::Flush() {
    if (writing.valid()) {
        writing.wait();
    }
}

void Journal::WriteSoon() {
    if (running) {
        Write();
    }
}

void Journal::WriteNow() {
    Flush();
    WriteSoon();
    Flush();
}

void Journal::End() {
    running = false;
    tmrRegular.Stop();
    tmrRetry.Stop();
    Flush();
    inJournal.reset();
    RemoveFiles();
}

bool Journal::IsWriting() const {
    return writing.valid() && writing.wait_for(Milliseconds{0}) != std::future_status::ready;
}

bool Journal::IsIdle() const {
    return !IsWriting() && !tmrRetry.Enabled();
}

JournalContent Journal::Content() const {
    const PlayQueue& wmp = program.mediaplayer.wmp;
    JournalContent content;
    content.settingsFile =
        FileFingerprint(program.SettingsFile());  // first: an edit from here on isn't in the settings
    content.settings = SettingsText(program);
    content.fadeInVolume = program.playervolume.fadeInVolume;
    if (program.godfather.saveMediaplayerState && wmp.Count() > 0) {
        content.current = program.mediaplayer.StateLinesOfCurrent();
        content.items = ItemLines(wmp);
    }
    return content;
}

void Journal::Write() {
    if (IsWriting()) {
        tmrRetry.Start();
        return;
    }
    tmrRetry.Stop();
    if (writing.valid() && !writing.get()) {
        inJournal.reset();  // what the disk holds now is not known
    }
    JournalContent content = Content();
    if (!inJournal || inJournal->items != content.items) {
        std::string text = JournalText(content);
        journalFingerprint = Fingerprint(text);
        inJournal = std::move(content);
        update = JournalUpdateText(journalFingerprint, *inJournal, *inJournal);
        WriteFile(Path(), std::move(text));
    } else if (std::string text = JournalUpdateText(journalFingerprint, *inJournal, content); text != update) {
        update = text;
        WriteFile(UpdatePath(), std::move(text));
    }
}

void Journal::WriteFile(const std::string& path, std::string text) {
    bytesWritten += text.size();
    ++filesWritten;
    writing = std::async(std::launch::async,
                         [path, text = std::move(text)] { return files::WriteAtomic(path, text).empty(); });
}

}  // namespace zvr
