#include "media/covers.h"

#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

std::vector<std::string> LowerParts(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        parts.push_back(text::Lower(text::TakePiece(list, ';')));
    }
    return parts;
}

}  // namespace

CoverRanking::CoverRanking(std::string_view words) : words(LowerParts(words)) {}

void CoverRanking::Add(std::string_view fileName) {
    constexpr std::size_t shortestName = 6;
    if (text::Length(fileName) < shortestName || !ExtensionMatches(fileName, "jpg;jpeg")) {
        return;
    }
    const std::string lower = text::Lower(fileName);
    for (std::size_t rank = 0; rank < std::min(words.size(), bestRank); ++rank) {
        if (lower.find(words[rank]) != std::string::npos) {
            best = names.size();
            bestRank = rank;
        }
    }
    names.emplace_back(fileName);
}

std::vector<std::string> CoverRanking::Order() const {
    std::vector<std::string> order = names;
    if (bestRank < lowestRank) {
        const auto first = order.begin() + static_cast<std::ptrdiff_t>(best);
        std::rotate(order.begin(), first, first + 1);
    }
    return order;
}

bool MediaPlayer::FindCover(const std::string& folder, bool forced) {
    if (folder == coverFolder && !forced) {
        return imgVis->visible;
    }
    imgVis->stretch = false;
    imgVis->picture = PicturePointer{};
    imgVis->visible = false;
    CoverRanking ranking(coverStrings);
    files::Enumerate(folder, [&ranking](const files::Found& found) {
        if ((found.attributes & files::attributeDirectory) == 0) {
            ranking.Add(found.name);
        }
        return true;
    });
    PicturePointer cover;
    for (const std::string& name : ranking.Order()) {
        if (cover = LoadPicture(folder + name); cover) {
            break;
        }
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
    double width = Twips(size.width);
    double height = Twips(size.height);
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
    imgVis->Move(Centred(areaWidth, width), Centred(areaHeight, height), width, height);
}

}  // namespace zvr
