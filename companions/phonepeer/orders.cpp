#include "orders.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace phonepeer {
namespace {

using Words = std::vector<std::string>;

struct Scene {
    const Words& words;
    Front& front;
    const std::function<void(const std::string&)>& sendRaw;
};

struct Order {
    std::string_view name;
    std::string_view values;
    std::size_t fewest;  ///< of the values
    std::string_view meaning;
    OrderResult (*run)(const Scene&);
};

std::optional<int> Percent(const std::string& word) {
    int value = 0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, value);
    return read.ec == std::errc{} && read.ptr == end && value >= 0 && value <= 100 ? std::optional(value)
                                                                                   : std::nullopt;
}

OrderResult NoPercent(const std::string& word) {
    return {false, word + " is no number from 0 to 100"};
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string joined;
    for (const std::string& line : lines) {
        joined += (joined.empty() ? "" : "\n") + line;
    }
    return joined;
}

constexpr auto orders = std::to_array<Order>({
    {"call", "NAME NUMBER", 2, "somebody calls",
     [](const Scene& s) { return s.front.phone.Ring(s.words[1], s.words[2]), OrderResult(); }},
    {"sms", "NAME NUMBER TEXT", 3, "a message comes in",
     [](const Scene& s) { return s.front.phone.Deliver(s.words[1], s.words[2], s.words[3]), OrderResult(); }},
    {"answered", "", 0, "the other side takes the call",
     [](const Scene& s) { return s.front.phone.Answered(), OrderResult(); }},
    {"ended", "", 0, "the other side hangs up", [](const Scene& s) { return s.front.phone.Ended(), OrderResult(); }},
    {"signal", "PERCENT", 1, "how good the network is",
     [](const Scene& s) {
         const auto percent = Percent(s.words[1]);
         return percent ? (s.front.phone.SetSignal(*percent), OrderResult()) : NoPercent(s.words[1]);
     }},
    {"battery", "PERCENT [charging]", 1, "how full the battery is",
     [](const Scene& s) {
         const auto percent = Percent(s.words[1]);
         const bool charging = s.words.size() > 2 && s.words[2] == "charging";
         return percent ? (s.front.phone.SetBattery(*percent, charging), OrderResult()) : NoPercent(s.words[1]);
     }},
    {"key", "NAME", 1, "a key of the phone is pressed",
     [](const Scene& s) { return s.front.phone.PressKey(s.words[1]), OrderResult(); }},
    {"lose", "", 0, "the phone is out of reach",
     [](const Scene& s) { return s.front.phone.Disconnect(), OrderResult(); }},
    {"recover", "", 0, "it is back", [](const Scene& s) { return s.front.phone.Connect(), OrderResult(); }},
    {"raw", "FRAME", 1, "sends the text as it stands, and the end of a frame",
     [](const Scene& s) { return s.sendRaw(s.words[1] + "\r"), OrderResult(); }},
    {"asked", "", 0, "prints the requests since it was last asked",
     [](const Scene& s) {
         return OrderResult{true, Joined(s.front.Asked())};
     }},
    {"quit", "", 0, "ends it", [](const Scene& s) { return s.front.quit(), OrderResult(); }},
});

}  // namespace

std::string OrdersHelp() {
    std::string help;
    for (const Order& order : orders) {
        std::string line = "       phonepeer " + std::string(order.name) + " " + std::string(order.values);
        line.resize(std::max<std::size_t>(line.size() + 1, 44), ' ');
        help += line + std::string(order.meaning) + "\n";
    }
    return help;
}

OrderResult Carry(const std::vector<std::string>& words, Front& front,
                  const std::function<void(const std::string&)>& sendRaw) {
    const auto known = std::find_if(orders.begin(), orders.end(),
                                    [&](const Order& order) { return !words.empty() && order.name == words[0]; });
    if (known == orders.end()) {
        return {false, "there is no such order"};
    }
    if (words.size() <= known->fewest) {
        return {false, std::string(known->name) + " needs " + std::string(known->values)};
    }
    return known->run({words, front, sendRaw});
}

}  // namespace phonepeer
