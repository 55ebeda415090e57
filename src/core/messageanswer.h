#pragma once

namespace zvr {

enum class MessageButtons { ok = 0, yesNo = 4 };

enum class MessageAnswer {
    none = 0,  ///< nobody could be asked: the program ends, or too many dialogs wait already
    ok = 1,
    yes = 6,
    no = 7,
};

}  // namespace zvr
