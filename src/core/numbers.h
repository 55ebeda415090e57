#pragma once

#include <string>
#include <string_view>

namespace zvr {

/// To the nearest whole number; halfway goes to the even neighbour. Beyond the range of long: its end. Not a number: 0.
[[nodiscard]] long RoundHalfEven(double value);

/// The number that a text begins with: leading blanks, a sign, digits with a decimal point, an exponent; "&H" begins
/// a hexadecimal one. 0 if the text begins with none: "12px" is 12, "x" is 0. The locale does not matter.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// As short as it reads back the same; a whole number without a point. The locale does not matter.
[[nodiscard]] std::string NumberText(double value);

}  // namespace zvr
