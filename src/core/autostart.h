#pragma once

namespace zvr {

class Program;

// The program's start with the user's session. Each version has an entry of its own and sees no other.

[[nodiscard]] bool isAutostartSet(const Program& program);
void setAutostart(Program& program);
void clearAutostart(Program& program);

}  // namespace zvr
