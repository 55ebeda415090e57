#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

std::vector<std::string> LowerParts(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        parts.push_back(text::Lower(list.substr(0, end)));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

struct CoverCandidates {
    std::vector<std::string> all;  ///< names, in the folder's order
    std::string best;              ///< the name that holds the earliest of the wanted words; empty for none
};

CoverCandidates FindCandidates(const std::string& folder, const std::vector<std::string>& words) {
    CoverCandidates candidates;
    std::size_t bestRank = 255;
    files::Enumerate(folder, [&](const files::Found& found) {
        constexpr std::size_t shortestName = 6;
        const bool folderEntry = (found.attributes & files::attributeDirectory) != 0;
        if (folderEntry || text::Length(found.name) < shortestName || !ExtensionMatches(found.name, "jpg;jpeg")) {
            return true;
        }
        candidates.all.emplace_back(found.name);
        const std::string lower = text::Lower(found.name);
        for (std::size_t rank = 0; rank < words.size() && rank < bestRank; ++rank) {
            if (lower.find(words[rank]) != std::string::npos) {
                candidates.best = found.name;
                bestRank = rank;
            }
        }
        return true;
    });
    return candidates;
}

}  // namespace

bool MediaPlayer::FindCover(const std::string& folder, bool forced) {
    if (folder == coverFolder && !forced) {
        return imgVis->visible;
    }
    imgVis->stretch = false;
    imgVis->picture = PicturePointer{};
    imgVis->visible = false;
    const CoverCandidates candidates = FindCandidates(folder, LowerParts(coverStrings));
    PicturePointer cover = candidates.best.empty() ? nullptr : LoadPicture(folder + candidates.best);
    for (auto name = candidates.all.begin(); name != candidates.all.end() && !cover; ++name) {
        cover = LoadPicture(folder + *name);
    }
    coverFolder = folder;
    if (!cover) {
        return false;
    }
    imgVis->picture = cover;
    FitCover();
    imgVis->visible = true;
    return true;
}

void MediaPlayer::FitCover() {
    const Size size = imgVis->picture.get()->PixelSize();
    const double areaWidth = picVis->width;
    const double areaHeight = picVis->height;
    double width = static_cast<double>(size.width) * twipsPerPixel;
    double height = static_cast<double>(size.height) * twipsPerPixel;
    if (width > areaWidth || height > areaHeight) {
        imgVis->stretch = true;
        const double ratio = width / height;
        if (width > areaWidth) {
            width = areaWidth;
            height = width / ratio;
        }
        if (height > areaHeight) {
            height = areaHeight;
            width = height * ratio;
        }
    }
    imgVis->Move((areaWidth - width) / 2, (areaHeight - height) / 2, width, height);
}

}  // namespace zvr
