#pragma once

#include <string>

namespace zvr {

class Program;

/// The skin of the program's own family that is drawn for this screen: of exactly its size, or the largest that fits.
/// Empty if none does.
[[nodiscard]] std::string SkinForScreen(const Program& program);
/// Its twin for the night; empty if there is none.
[[nodiscard]] std::string NightSkinForScreen(const Program& program);

}  // namespace zvr
