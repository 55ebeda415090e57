#pragma once

#include "phone/phocointerface.h"

#include <string_view>

namespace zvr {

/// Calls a handler that is set.
template <typename... Parameters, typename... Values>
void Raise(const std::function<void(Parameters...)>& handler, const Values&... values) {
    if (handler) {
        handler(values...);
    }
}

/// Raises what stands in a frame, in the order of the events. A value that can't be read ends it: the cause, else
/// empty.
[[nodiscard]] std::string_view TellEvents(const PhoCoInterface& phone, const XmlDocument& frame);

}  // namespace zvr
