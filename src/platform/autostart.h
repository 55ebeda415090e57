#pragma once

#include <memory>
#include <string>

namespace zvr {

/// What the user's session starts by itself.
class Autostart {
public:
    Autostart();
    ~Autostart();
    Autostart(const Autostart&) = delete;
    Autostart& operator=(const Autostart&) = delete;

    // Failures are silent towards the caller; the log tells.

    /// An entry of that name is there and the session heeds it.
    [[nodiscard]] bool IsSet(const std::string& name) const;
    /// Takes the place of an entry of that name. A program with a '%' in its path can't be started that way.
    void Set(const std::string& name, const std::string& programFile);
    void Clear(const std::string& name);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
