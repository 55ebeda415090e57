#pragma once

#include "platform/files.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

/// A settings or language file: [section] lines, KEY=value lines. Sections and keys are found without regard
/// to case; what isn't changed stays as it was, byte for byte, but for UTF-16, which is written as UTF-8.
class Profile {
public:
    Profile();
    ~Profile();
    Profile(Profile&&) noexcept;
    Profile& operator=(Profile&&) noexcept;

    static constexpr std::size_t largestFile = 4U << 20U;  ///< bytes; a larger one can't be read

    /// A missing or unreadable file gives an empty profile. Any bytes are taken: UTF-16 by its mark, and a value that
    /// isn't UTF-8 counts as Latin-1.
    static Profile Load(const std::string& path);
    /// The same. `fault`: why a file that is there wasn't read, else empty.
    static Profile Load(const std::string& path, files::ErrorText& fault);
    static Profile Parse(std::string_view text);

    /// The first value of the key; blanks and one pair of quotes around it are cut. None if there is no such key.
    [[nodiscard]] std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// Puts the value in place of the old one, else at the end of its section, else in a new section.
    /// Line breaks in the value become blanks.
    void SetValue(std::string_view section, std::string_view key, std::string_view value);
    [[nodiscard]] std::string Text() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
