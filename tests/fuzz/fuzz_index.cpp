#include "target.h"

#include "media/index/foldcase.h"
#include "media/index/mediaindex.h"
#include "platform/entryscan.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

using namespace zvr;

namespace {

std::vector<MediaIndex::Place> Search(const MediaIndex& index, std::string word) {
    std::vector<MediaIndex::Place> places;
    EntryScan scan(index.SearchedText(), {std::move(word)});
    while (scan.Continue(1000, places)) {
    }
    return places;
}

}  // namespace

// Any file at all: it is refused with a reason, or each of its entries has a name that finds it.
void zvr::Try(std::string_view input) {
    const std::string content(input);
    const IndexReading reading = MediaIndex::Parse(content);
    Require((reading.index == nullptr) == (reading.fault != IndexFault::none));
    if (reading.index == nullptr) {
        return;
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
}
