#pragma once

namespace zvr {

enum class MessageButtons { ok = 0, yesNo = 4 };
enum class MessageAnswer { ok = 1, yes = 6, no = 7 };

}  // namespace zvr
