#include "media/journal.h"

#include "core/program.h"
#include "core/settings.h"
#include "media/playerstate.h"

#include <charconv>

namespace zvr {
namespace {

constexpr std::string_view head = "zVR journal 1\n";
constexpr Milliseconds regularInterval{10'000};
constexpr Milliseconds retryInterval{500};

/// One part: its length in bytes, a line end, the bytes.
std::string Part(std::string_view content) {
    return std::to_string(content.size()) + "\n" + std::string(content);
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

}  // namespace

std::string JournalText(const JournalContent& content) {
    std::string text = std::string(head) + Part(content.settings);
    if (content.playerState) {
        text += Part(*content.playerState);
    }
    return text;
}

std::optional<JournalContent> ParseJournal(std::string_view text) {
    if (!text.starts_with(head)) {
        return std::nullopt;
    }
    text.remove_prefix(head.size());
    auto settings = TakePart(text);
    if (!settings) {
        return std::nullopt;
    }
    JournalContent content{std::move(*settings), std::nullopt};
    if (!text.empty()) {
        content.playerState = TakePart(text);
        if (!content.playerState || !text.empty()) {
            return std::nullopt;
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
    if (writing.valid()) {
        writing.wait();
    }
}

std::string Journal::Path() const {
    return program.place.folder + "/journal.dat";
}

void Journal::Recover() {
    const auto text = files::Read(Path());
    if (!text) {
        return;
    }
    if (const auto content = ParseJournal(*text)) {
        const bool settingsFailed = !files::WriteAtomic(program.SettingsFile(), content->settings).empty();
        const bool stateFailed =
            content->playerState && !files::WriteAtomic(StateFile(program.place.folder), *content->playerState).empty();
        if (settingsFailed || stateFailed) {
            return;  // a full card now may have room at the next start
        }
    }
    (void)files::Remove(Path());
}

void Journal::Start() {
    running = true;
    tmrRegular.Start();
    Write();
}

void Journal::WriteSoon() {
    if (running) {
        Write();
    }
}

void Journal::End() {
    running = false;
    tmrRegular.Stop();
    tmrRetry.Stop();
    if (writing.valid()) {
        writing.wait();
    }
    (void)files::Remove(Path());
}

bool Journal::IsWriting() const {
    return writing.valid() && writing.wait_for(Milliseconds{0}) != std::future_status::ready;
}

bool Journal::IsIdle() const {
    return !IsWriting() && !tmrRetry.Enabled();
}

void Journal::Write() {
    if (IsWriting()) {
        tmrRetry.Start();
        return;
    }
    tmrRetry.Stop();
    JournalContent content{SettingsText(program), std::nullopt};
    if (program.godfather.saveMediaplayerState && program.mediaplayer.wmp.Count() > 0) {
        content.playerState = StateTextOf(program.mediaplayer.wmp);
    }
    std::string text = JournalText(content);
    if (text == written) {
        return;
    }
    written = std::move(text);
    bytesWritten += written.size();
    writing = std::async(std::launch::async, [path = Path(), copy = written] { (void)files::WriteAtomic(path, copy); });
}

}  // namespace zvr
