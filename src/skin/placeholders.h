#pragma once

#include "platform/eventloop.h"
#include "platform/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class Control;
class Program;

/// A live value that a label can show.
struct Placeholder {
    std::string_view token;  ///< with its stars
    /// Appends the value as of now to `text`. Allocates nothing once the text has had the room.
    void (*show)(Program&, std::string& text);
    /// For values that each label shows in its own way, else null: `text` comes in as the label's caption and goes
    /// out as the new one.
    void (*showOn)(Program&, Control& label, std::string& text);
    std::string_view description;  ///< for skin authors
    std::string_view longest;      ///< a sample of the longest text that usually shows
};

[[nodiscard]] std::span<const Placeholder> Placeholders();

/// A title for samples, longer than any label shows at once.
inline constexpr std::string_view sampleTitle = "Evening Drive and the Long Way Home through the Hills in Summer Rain";

/// The title with what parts its end from its beginning, cut into characters.
struct TitleRing {
    std::string title;
    std::string ring;
    std::vector<std::uint32_t> starts;  ///< bytes, of each character, and the end

    bool Set(std::string_view newTitle);  ///< false if it is the one that it has
    [[nodiscard]] int Length() const { return static_cast<int>(starts.size()) - 1; }
    /// Appends `count` characters from number `position`, from 1, on; short when four rounds are shorter.
    void Show(int position, int count, std::string& text) const;
};

/// What one refresh keeps for the next, so that a tick without news neither searches nor allocates.
struct PlaceholderCache {
    struct Label {
        Control* control;
        std::size_t row;
    };
    struct FormLabels {
        unsigned tagRevision = 0;  ///< of the form when they were looked for
        std::vector<Label> labels;
    };
    struct Value {
        std::uint64_t refresh = 0;  ///< that it is of
        std::string text;
    };
    struct Moment {
        std::int64_t unit = -1;  ///< second or minute since 1970, the shortest that the text tells
        std::string text;
    };

    std::array<FormLabels, 14> forms;  ///< as in Program::ModuleForms
    std::vector<Value> values;         ///< by row
    std::uint64_t refreshes = 0;
    std::array<Moment, 4> moments;  ///< by text::TimeFormat
    TitleRing title;
    std::string buffer;

    /// Present time or date, with blanks that don't break.
    const std::string& MomentText(const LocalTime& now, text::TimeFormat format);
};

/// A token whose text runs through its label, or grows in it.
[[nodiscard]] bool IsMoving(std::string_view token);

/// Rewrites every label of the active modules' loaded forms whose tag is a placeholder.
void RefreshPlaceholders(Program& program);

/// What a label with this token shows, a running title as a whole. Sets `known` to whether there is such a token.
[[nodiscard]] std::string PlaceholderText(Program& program, std::string_view token, bool& known);

/// Every blank becomes the non-breaking space, so that a label never wraps.
[[nodiscard]] std::string WithoutBreaks(std::string_view text);

}  // namespace zvr
