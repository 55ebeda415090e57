#include "media/txtlinedelete.h"

#include "platform/text.h"

#include <algorithm>

namespace zvr {

std::string WithoutLine(std::string_view text, std::size_t lineNumber) {
    const std::vector<std::string_view> lines = text::Lines(text);
    const std::size_t index = std::min(lineNumber, lines.size()) - 1;
    const auto offset = [&](std::size_t line) { return static_cast<std::size_t>(lines[line].data() - text.data()); };
    if (lineNumber == 0) {
        return std::string(text);
    }
    if (index + 1 < lines.size()) {
        return std::string(text.substr(0, offset(index))) + std::string(text.substr(offset(index + 1)));
    }
    // The last line goes with the line end before it.
    return std::string(index == 0 ? "" : text.substr(0, offset(index - 1) + lines[index - 1].size()));
}

files::ErrorText RemoveLine(const std::string& file, std::size_t lineNumber) {
    const auto content = files::Read(file);
    return content ? files::WriteAtomic(file, WithoutLine(text::Utf8Of(*content), lineNumber)) : files::ErrorText{};
}

}  // namespace zvr
