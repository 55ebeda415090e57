#pragma once

#include "phone.h"

#include <vector>

namespace phonepeer {

/// 200 people who don't exist, in Latin, Greek and Cyrillic letters, in the order of their names. Some have more than
/// one number; all numbers are of ranges that nobody has.
[[nodiscard]] std::vector<PhoneEntry> MadeUpPeople();

}  // namespace phonepeer
