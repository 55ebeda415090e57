#include "media/index/foldcase.h"
#include "media/index/mediaindex.h"
#include "platform/entryscan.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace zvr;

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::vector<MediaIndex::Place> Search(const MediaIndex& index, std::string word) {
    std::vector<MediaIndex::Place> places;
    EntryScan scan(index.SearchedText(), {std::move(word)});
    while (scan.Continue(1000, places)) {
    }
    return places;
}

}  // namespace

// Any file at all: it is refused with a reason, or each of its entries has a name that finds it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(data), size);
    const IndexReading reading = MediaIndex::Parse(content);
    Require((reading.index == nullptr) == (reading.fault != IndexFault::none));
    if (reading.index == nullptr) {
        return 0;
    }
    const std::vector<MediaIndex::Place> all = Search(*reading.index, "");
    std::size_t looked = 0;
    for (const MediaIndex::Place place : all) {
        const std::string name = reading.index->Name(place);
        Require(content.find(name) != content.npos);
        Require(content.find(reading.index->Folder(place)) != content.npos);
        if (looked++ < 20 && name.find('\0') == name.npos) {
            const std::vector<MediaIndex::Place> found = Search(*reading.index, FoldedText(name));
            Require(std::find(found.begin(), found.end(), place) != found.end());
        }
    }
    return 0;
}
