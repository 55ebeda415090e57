#include "media/txtlinedelete.h"

#include <algorithm>

namespace zvr {

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find_first_of("\r\n"); end != text.npos; end = text.find_first_of("\r\n", begin)) {
        lines.push_back(text.substr(begin, end - begin));
        begin = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    lines.push_back(text.substr(begin));
    return lines;
}

std::string WithoutLine(std::string_view text, std::size_t lineNumber) {
    const std::vector<std::string_view> lines = SplitLines(text);
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
    return content ? files::WriteAtomic(file, WithoutLine(*content, lineNumber)) : files::ErrorText{};
}

}  // namespace zvr
