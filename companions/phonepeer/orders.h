#pragma once

#include "front.h"

#include <functional>
#include <string>
#include <vector>

namespace phonepeer {

// Between the words of an order, and behind it: no text of a message has them.
constexpr char orderSeparator = '\x1F';
constexpr char orderEnd = '\0';

/// The lines of the help text that tell the orders.
[[nodiscard]] std::string OrdersHelp();

struct OrderResult {
    bool done = true;
    std::string said;  ///< what it prints, or why it is refused; without a line end
};

/// `words`: the order and what belongs to it. `sendRaw` gives bytes to all who are connected, as they stand.
[[nodiscard]] OrderResult Carry(const std::vector<std::string>& words, Front& front,
                                const std::function<void(const std::string&)>& sendRaw);

}  // namespace phonepeer
