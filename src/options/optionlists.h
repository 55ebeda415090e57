#pragma once

#include "apps/externalappsctl.h"
#include "platform/text.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// A program of the list as the editors pass it on: four fields with a tab between them.
[[nodiscard]] inline std::string EntryOf(const ExternalApp& app) {
    return app.name + "\t" + app.command + (app.docked ? "\tdocked" : "\tfloating") +
           (app.maximized ? "\tmaximized" : "\tnormal");
}

/// Without a name if the entry isn't whole.
[[nodiscard]] inline ExternalApp AppOf(std::string_view entry) {
    const auto fields = text::Split(entry, '\t');
    if (fields.size() != 4) {
        return {};
    }
    return {std::string(fields[0]), std::string(fields[1]), fields[2] != "floating", fields[3] != "normal"};
}

/// The entries of a list as its setting joins them.
[[nodiscard]] inline std::vector<std::string> EntriesOf(std::string_view joined, char separator) {
    std::vector<std::string> entries;
    for (const std::string_view entry : text::Split(joined, separator)) {
        if (!entry.empty()) {
            entries.emplace_back(entry);
        }
    }
    return entries;
}

[[nodiscard]] inline std::string JoinedEntries(const std::vector<std::string>& entries, char separator) {
    std::string joined;
    for (const std::string& entry : entries) {
        joined += (joined.empty() ? std::string() : std::string(1, separator)) + entry;
    }
    return joined;
}

/// What a row of a list says of an entry: its first line, or the second, smaller one. Where tabs part the fields, a
/// semicolon is a character like any other.
[[nodiscard]] inline std::string EntryText(std::string_view entry, bool second) {
    const std::size_t tab = entry.find('\t');
    const std::size_t parted = tab == std::string_view::npos ? entry.find(';') : tab;
    if (parted == std::string_view::npos) {
        return second ? std::string() : std::string(entry);
    }
    const std::string_view rest = entry.substr(parted + 1);
    return std::string(second ? rest.substr(0, rest.find('\t')) : entry.substr(0, parted));
}

}  // namespace zvr
