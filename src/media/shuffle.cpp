#include "media/shuffle.h"

#include <algorithm>

namespace zvr {

void Shuffle::Clear() {
    order.clear();
    place = -1;
    admitted = 0;
}

void Shuffle::MixFrom(std::size_t begin) {
    std::shuffle(order.begin() + static_cast<std::ptrdiff_t>(begin), order.end(), random);
}

void Shuffle::Admit(int count) {
    if (admitted >= count) {
        return;
    }
    for (; admitted < count; ++admitted) {
        order.push_back(admitted);
    }
    MixFrom(static_cast<std::size_t>(place + 1));
}

/// Keeps one round of the way behind it.
void Shuffle::AddRound(int count) {
    const auto kept = static_cast<std::size_t>(count);
    if (order.size() > kept) {
        order.erase(order.begin(), order.end() - count);
    }
    place = static_cast<int>(order.size()) - 1;
    const int last = order.back();
    const std::size_t begin = order.size();
    for (int number = 0; number < count; ++number) {
        order.push_back(number);
    }
    MixFrom(begin);
    if (count > 1 && order[begin] == last) {
        std::swap(order[begin], order.back());
    }
}

void Shuffle::Choose(int number, int count) {
    Admit(count);
    const auto ahead = order.begin() + place + 1;
    auto found = std::find(ahead, order.end(), number);
    if (found != order.end()) {
        std::rotate(ahead, found, found + 1);
        ++place;
        return;
    }
    // Come by already: it moves up to here, so that the way back stays free of doubles.
    found = std::find(order.begin(), ahead, number);
    std::rotate(found, found + 1, ahead);
}

int Shuffle::Next(int count) {
    Admit(count);
    if (place + 1 >= static_cast<int>(order.size())) {
        AddRound(count);
    }
    return order[static_cast<std::size_t>(++place)];
}

int Shuffle::Previous(int count) {
    Admit(count);
    if (place > 0) {
        return order[static_cast<std::size_t>(--place)];
    }
    std::rotate(order.begin(), order.end() - 1, order.end());
    place = 0;
    return order.front();
}

}  // namespace zvr
