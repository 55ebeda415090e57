#include "platform/profile.h"

#include "platform/text.h"

#include <algorithm>
#include <vector>

namespace zvr {
namespace {

/// Below, at or above 0. The names are the program's own, so plain letters are all that case means here.
int Compare(std::string_view a, std::string_view b) {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        if (const int difference = text::LowerAscii(a[i]) - text::LowerAscii(b[i]); difference != 0) {
            return difference;
        }
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == text.npos ? std::string_view{} : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool HasQuotes(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
}

std::string OneLine(std::string_view value) {
    std::string line = text::FromUtf8OrLatin1(value);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

/// In a form that reading gives back unchanged.
std::string Quoted(const std::string& value) {
    return Trimmed(value).size() != value.size() || HasQuotes(value) ? '"' + value + '"' : value;
}

/// The bytes up to and with the next line feed.
std::string_view LineAt(std::string_view text, std::size_t at) {
    return text.substr(at, std::min(text.find('\n', at), text.size() - 1) - at + 1);
}

struct Section {
    std::string_view name;
    std::size_t end = 0;  ///< where a new key goes: behind the last key, else behind the header
};

/// A key's line. Of several of the same name only the first is ever looked at.
struct Entry {
    std::string_view section;
    std::string_view key;
    std::string_view value;
    std::size_t line = 0;  ///< first byte
    std::size_t length = 0;
    std::optional<std::string> changed;
};

struct Added {
    std::string section;
    std::string key;
    std::string value;
};

struct Edit {
    std::size_t at = 0;
    std::size_t length = 0;  ///< of what goes
    std::string text;
};

}  // namespace

/// The text stays as it was read; changes lie beside it until it is written.
struct Profile::State {
    std::string text;
    std::string lineEnd = "\n";
    std::vector<Section> sections;  ///< in the file's order
    std::vector<Entry> entries;     ///< sorted by section and key
    std::vector<Added> added;       ///< keys that the file doesn't have

    explicit State(std::string content) : text(std::move(content)) {
        for (std::size_t at = 0; at < text.size();) {
            const std::string_view line = LineAt(text, at);
            TakeLine(line, at);
            at += line.size();
        }
        std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
            const int order = Order(a, b.section, b.key);
            return order != 0 ? order < 0 : a.line < b.line;
        });
        const std::size_t firstBreak = text.find('\n');
        if (firstBreak != text.npos && firstBreak > 0 && text[firstBreak - 1] == '\r') {
            lineEnd = "\r\n";
        }
    }

    void TakeLine(std::string_view line, std::size_t at) {
        std::string_view content = line;
        while (content.ends_with('\n') || content.ends_with('\r')) {
            content.remove_suffix(1);
        }
        content = Trimmed(content);
        if (content.empty() || content.front() == ';' || content.front() == '#') {
            return;
        }
        const std::size_t bracket = content.front() == '[' ? content.find(']') : content.npos;
        if (bracket != content.npos) {
            sections.push_back({Trimmed(content.substr(1, bracket - 1)), at + line.size()});
            return;
        }
        const std::size_t equals = content.find('=');
        if (equals == content.npos || sections.empty()) {
            return;
        }
        std::string_view value = Trimmed(content.substr(equals + 1));
        if (HasQuotes(value)) {
            value = value.substr(1, value.size() - 2);
        }
        sections.back().end = at + line.size();
        entries.push_back({sections.back().name, Trimmed(content.substr(0, equals)), value, at, line.size(), {}});
    }

    static int Order(const Entry& entry, std::string_view section, std::string_view key) {
        const int order = Compare(entry.section, section);
        return order != 0 ? order : Compare(entry.key, key);
    }

    const Entry* Find(std::string_view section, std::string_view key) const {
        const auto found = std::partition_point(entries.begin(), entries.end(),
                                                [&](const Entry& entry) { return Order(entry, section, key) < 0; });
        return found != entries.end() && Order(*found, section, key) == 0 ? &*found : nullptr;
    }

    const Added* FindAdded(std::string_view section, std::string_view key) const {
        const auto found = std::find_if(added.begin(), added.end(), [&](const Added& one) {
            return Compare(one.section, section) == 0 && Compare(one.key, key) == 0;
        });
        return found != added.end() ? &*found : nullptr;
    }

    std::vector<Edit> Edits() const;
};

std::vector<Edit> Profile::State::Edits() const {
    std::vector<Edit> edits;
    for (const Entry& entry : entries) {
        if (entry.changed) {
            const std::string_view line(text.data() + entry.line, entry.length);
            const std::size_t content = line.find_last_not_of("\r\n") + 1;
            edits.push_back({entry.line, content, std::string(entry.key) + '=' + Quoted(*entry.changed)});
        }
    }
    std::vector<std::string_view> newSections;
    for (const Added& one : added) {
        const std::string line = one.key + '=' + Quoted(one.value) + lineEnd;
        const auto named = [&](std::string_view name) { return Compare(name, one.section) == 0; };
        const auto home =
            std::find_if(sections.begin(), sections.end(), [&](const Section& s) { return named(s.name); });
        if (home != sections.end()) {
            edits.push_back({home->end, 0, line});
        } else if (std::none_of(newSections.begin(), newSections.end(), named)) {
            newSections.push_back(one.section);
        }
    }
    for (const std::string_view name : newSections) {
        std::string block =
            (text.empty() && name == newSections.front() ? "[" : lineEnd + '[') + std::string(name) + ']' + lineEnd;
        for (const Added& one : added) {
            if (Compare(one.section, name) == 0) {
                block += one.key + '=' + Quoted(one.value) + lineEnd;
            }
        }
        edits.push_back({text.size(), 0, block});
    }
    std::stable_sort(edits.begin(), edits.end(), [](const Edit& a, const Edit& b) { return a.at < b.at; });
    return edits;
}

Profile::Profile() : state(std::make_unique<State>("")) {}
Profile::~Profile() = default;
Profile::Profile(Profile&&) noexcept = default;
Profile& Profile::operator=(Profile&&) noexcept = default;

Profile Profile::Load(const std::string& path) {
    files::ErrorText fault;
    return Load(path, fault);
}

Profile Profile::Load(const std::string& path, files::ErrorText& fault) {
    return Parse(files::Read(path, largestFile, fault).value_or(""));
}

Profile Profile::Parse(std::string_view text) {
    Profile profile;
    profile.state = std::make_unique<State>(std::string(text::WithoutByteOrderMark(text::Utf8Of(std::string(text)))));
    return profile;
}

std::optional<std::string> Profile::Value(std::string_view section, std::string_view key) const {
    if (const Entry* entry = state->Find(section, key)) {
        return entry->changed ? *entry->changed : text::FromUtf8OrLatin1(entry->value);
    }
    if (const Added* one = state->FindAdded(section, key)) {
        return one->value;
    }
    return std::nullopt;
}

void Profile::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    if (const Entry* entry = state->Find(section, key)) {
        auto& changed = state->entries[static_cast<std::size_t>(entry - state->entries.data())].changed;
        // A line that says the same already keeps its own spelling.
        if (changed || OneLine(value) != text::FromUtf8OrLatin1(entry->value)) {
            changed = OneLine(value);
        }
    } else if (const Added* one = state->FindAdded(section, key)) {
        state->added[static_cast<std::size_t>(one - state->added.data())].value = OneLine(value);
    } else {
        state->added.push_back({std::string(section), std::string(key), OneLine(value)});
    }
}

std::string Profile::Text() const {
    const std::string& old = state->text;
    std::string text;
    std::size_t at = 0;
    for (const Edit& edit : state->Edits()) {
        text.append(old, at, edit.at - at);
        if (edit.length == 0 && !text.empty() && text.back() != '\n') {
            text += state->lineEnd;  // the file's last line had none
        }
        text += edit.text;
        at = edit.at + edit.length;
    }
    return text.append(old, at);
}

}  // namespace zvr
