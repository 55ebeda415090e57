#include "target.h"

#include "support/phoneline.h"

namespace {

using Events = std::vector<std::string>;

/// What a text raises in pieces of these lengths. The end of a frame is the end of a read, so no piece but the last
/// ends in one.
Events EventsInPieces(zvr::PhoneLine& line, std::string_view text, std::string_view lengths) {
    for (std::size_t at = 0, turn = 0; at < text.size(); ++turn) {
        const std::size_t length = static_cast<unsigned char>(lengths[turn % lengths.size()]) + 1;
        std::size_t end = std::min(at + length, text.size());
        end += end < text.size() && text[end - 1] == '\r' ? 1 : 0;
        line.Feed(text.substr(at, end - at));
        at = end;
    }
    return std::exchange(line.events, {});
}

}  // namespace

// Any bytes at all, in any pieces: they raise what they raise in one piece, and do no harm to the frame behind them.
void zvr::Try(std::string_view input) {
    constexpr std::size_t forLengths = 8;
    if (input.size() < forLengths) {
        return;
    }
    std::string text = std::string(input.substr(forLengths)) + '\r';
    while (text.find("\r\r") != text.npos) {
        text.erase(text.find("\r\r"), 1);
    }
    zvr::PhoneLine line;
    const Events whole = line.EventsOf(text);
    Require(EventsInPieces(line, text, input.substr(0, forLengths)) == whole);
    Require(line.EventsOf("<Operator>o</Operator>\r") == Events{"Operator|o"});
}
