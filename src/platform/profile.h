#pragma once

#include "platform/files.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

/// A settings or language file: [section] lines, KEY=value lines. Sections and keys are found without regard
/// to case; comments, blank lines and order stay as they were.
class Profile {
public:
    Profile();
    ~Profile();
    Profile(Profile&&) noexcept;
    Profile& operator=(Profile&&) noexcept;

    /// A missing or unreadable file gives an empty profile. Any bytes are taken: invalid UTF-8 counts as Latin-1.
    static Profile Load(const std::string& path);
    static Profile Parse(std::string_view text);

    /// The first value of the key; blanks and one pair of quotes around it are cut. None if there is no such key.
    [[nodiscard]] std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// Puts the value in place of the old one, else at the end of its section, else in a new section.
    /// Line breaks in the value become blanks.
    void SetValue(std::string_view section, std::string_view key, std::string_view value);
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] files::ErrorText Save(const std::string& path) const;  ///< atomic

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
