#include "target.h"

#include "media/playlistentries.h"
#include "media/playlistreader.h"
#include "media/txtlinedelete.h"
#include "platform/text.h"

#include <algorithm>

namespace {

std::vector<std::string_view> FilledLines(std::string_view text) {
    std::vector<std::string_view> lines = zvr::text::Lines(text);
    std::erase_if(lines, [](std::string_view line) { return line.empty(); });
    return lines;
}

}  // namespace

// Any file may be called a playlist. The first byte chooses the line that is removed.
void zvr::Try(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const std::string text = text::Utf8Of(std::string(input.substr(1)));
    const auto lines = zvr::text::Lines(text);
    const auto entries = zvr::PlaylistEntries(text, "/lists/x.m3u");
    // An entry's number is its line's: what the list removes is what it shows.
    Require(entries.size() == lines.size() - (lines.back().empty() || zvr::text::WithoutByteOrderMark(text).empty()));
    for (std::size_t i = 1; i < entries.size(); ++i) {
        const std::string line = zvr::PlaylistLine(lines[i], "/lists/");
        Require(entries[i].FullName() == line || entries[i].FullName() == "/lists/" + line);
    }
    const std::size_t number = FirstByte(input) % lines.size() + 1;
    const std::string without = zvr::WithoutLine(text, number);
    std::vector<std::string_view> expected = FilledLines(text);
    if (const std::string_view removed = lines[number - 1]; !removed.empty()) {
        expected.erase(std::find_if(expected.begin(), expected.end(),
                                    [&](std::string_view line) { return line.data() == removed.data(); }));
    }
    Require(FilledLines(without) == expected);
    for (const char* name : {"/lists/x.m3u", "/lists/x.pls"}) {
        for (const std::string& entry : zvr::ReadPlaylist(text, name)) {
            Require(!entry.empty() && entry.find_first_of("\r\n") == std::string::npos);
        }
    }
}
