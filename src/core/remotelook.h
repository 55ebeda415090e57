#pragma once

#include <string>

namespace zvr {

class Program;

/// What a neighbour needs that wants to look as this program looks now and to stay clear of where the driver types:
/// language, folder and colours of the skin, whether a dialog is open, place of the text box that takes the keys. One
/// line of JSON.
[[nodiscard]] std::string RemoteLook(const Program& program);

}  // namespace zvr
