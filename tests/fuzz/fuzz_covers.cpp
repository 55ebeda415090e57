#include "media/covers.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdlib>
#include <string>

using namespace zvr;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::vector<std::string> Split(std::string_view text, char at) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == at) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

bool IsPicture(const std::string& name) {
    const std::string lower = text::Lower(name);
    return text::Length(name) >= 6 && (lower.ends_with(".jpg") || lower.ends_with(".jpeg"));
}

/// The place of the first word that the name holds.
std::size_t Rank(const std::string& name, const std::vector<std::string>& words) {
    const std::string lower = text::Lower(name);
    return static_cast<std::size_t>(
        std::find_if(words.begin(), words.end(),
                     [&](const std::string& word) { return lower.find(text::Lower(word)) != lower.npos; }) -
        words.begin());
}

}  // namespace

// Any words in the settings, in the first line, and any names in a folder: all pictures are tried, each once, and the
// first of them is the one with the earliest word.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::vector<std::string> names = Split({reinterpret_cast<const char*>(data), size}, '\n');
    const std::string setting = names.front();
    names.erase(names.begin());
    CoverRanking ranking(setting);
    for (const std::string& name : names) {
        ranking.Add(name);
    }
    std::vector<std::string> expected = names;
    std::erase_if(expected, [](const std::string& name) { return !IsPicture(name); });
    std::vector<std::string> words = Split(setting, ';');
    words.resize(std::min<std::size_t>(words.size(), 255));
    const auto best = std::min_element(
        expected.begin(), expected.end(),
        [&words](const std::string& a, const std::string& b) { return Rank(a, words) < Rank(b, words); });
    if (best != expected.end()) {
        std::rotate(expected.begin(), best, best + 1);
    }
    Require(ranking.Order() == expected);
    return 0;
}
