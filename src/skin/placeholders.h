#pragma once

#include <span>
#include <string>
#include <string_view>

namespace zvr {

class Control;
class Program;

/// A live value that a label can show.
struct Placeholder {
    std::string_view token;  ///< with its stars
    /// Writes the value as of now into `text`, which holds the caption as it stands.
    void (*show)(Program&, Control& label, std::string& text);
    std::string_view description;  ///< for skin authors
    std::string_view longest;      ///< a sample of the longest text that usually shows
};

[[nodiscard]] std::span<const Placeholder> Placeholders();

/// Rewrites every label of the active modules' loaded forms whose tag is a placeholder.
void RefreshPlaceholders(Program& program);

/// The text that a label with this token would show; none for an unknown token.
[[nodiscard]] std::string PlaceholderText(Program& program, std::string_view token, bool& known);

/// Every blank becomes the non-breaking space, so that a label never wraps.
[[nodiscard]] std::string WithoutBreaks(std::string_view text);

}  // namespace zvr
