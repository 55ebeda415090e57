#pragma once

#include <memory>

namespace zvr {

/// The mark that one program of this user runs. Goes with the process, however it ends.
class Instance {
public:
    Instance();
    ~Instance();
    /// Takes the mark. False when another process holds it.
    [[nodiscard]] bool Claim();

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
