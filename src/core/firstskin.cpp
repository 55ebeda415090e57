#include "core/firstskin.h"

#include "core/godfather.h"
#include "core/program.h"
#include "platform/files.h"

#include <charconv>
#include <optional>

namespace zvr {
namespace {

constexpr std::string_view family = "Dark&Silver ";
constexpr std::string_view night = " Night";

/// Of a name such as "Dark&Silver 1024x600".
std::optional<Size> SizeInName(std::string_view name) {
    if (!name.starts_with(family)) {
        return std::nullopt;
    }
    name.remove_prefix(family.size());
    Size size;
    const char* const end = name.data() + name.size();
    const auto width = std::from_chars(name.data(), end, size.width);
    if (width.ec != std::errc{} || width.ptr == end || *width.ptr != 'x') {
        return std::nullopt;
    }
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    const bool whole = height.ec == std::errc{} && height.ptr == end && size.width > 0 && size.height > 0;
    return whole ? std::optional(size) : std::nullopt;
}

bool IsSkin(const Program& program, const std::string& name) {
    return files::Exists(program.place.folder + "/skins/" + name + "/skindata.xml");
}

}  // namespace

std::string SkinForScreen(const Program& program) {
    const Rect screen = program.godfather.form.Place();
    std::string best;
    Size bestSize;
    files::Enumerate(program.place.folder + "/skins", [&](const files::Found& found) {
        const std::string name(found.name);
        const std::optional<Size> size = SizeInName(name);
        if (size && size->width <= screen.width && size->height <= screen.height &&
            size->width * size->height > bestSize.width * bestSize.height && IsSkin(program, name)) {
            best = name;
            bestSize = *size;
        }
        return true;
    });
    return best;
}

std::string NightSkinForScreen(const Program& program) {
    const std::string twin = SkinForScreen(program) + std::string(night);
    return IsSkin(program, twin) ? twin : "";
}

}  // namespace zvr
