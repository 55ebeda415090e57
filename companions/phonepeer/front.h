#pragma once

#include "phone.h"
#include "phone/modxml.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace phonepeer {

/// Speaks the protocol for a phone: requests in, answers and news out, a frame each.
class Front {
public:
    /// Takes over the phone's news. `toAll` gets each as a frame for all who are connected; `quit` is a client's wish.
    Front(Phone& phone, std::function<void(const std::string&)> toAll, std::function<void()> quit);
    Front(const Front&) = delete;
    Front& operator=(const Front&) = delete;

    static constexpr std::size_t longestRequest = 1U << 20U;  ///< bytes

    /// What a client should know first.
    [[nodiscard]] std::string Greeting();
    /// Reads the whole requests off `received`. The answers, which are for that client alone.
    [[nodiscard]] std::string Answer(std::string& received);
    /// The requests since the last call, as they were written; the last hundred.
    [[nodiscard]] std::vector<std::string> Asked();

    Phone& phone;
    std::function<void()> quit;

private:
    void ListenToPhone();
    void TellAll(const zvr::WrittenElement& element);
    [[nodiscard]] std::string AnswerOne(std::string_view request);

    std::function<void(const std::string&)> toAll;
    std::deque<std::string> asked;
};

}  // namespace phonepeer
