#pragma once

namespace zvr::sessionmanager {

/// Whether the session manager that the environment names may be connected to. The toolkit would wait for its first
/// word for ever, with nothing on the screen; this waits a second at most. True when none is named.
[[nodiscard]] bool Answers();

/// From here on the program lives on when its session manager crashes. It would be ended in the middle of whatever it
/// does.
void Outlive();

}  // namespace zvr::sessionmanager
