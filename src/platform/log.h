#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zvr {

enum class LogLevel {
    note,     ///< worth knowing when something else fails
    warning,  ///< something was left undone; the program goes on as if it had been done
    error,    ///< a whole service is missing
};

/// What the driver isn't told: one line for each failure that behaviour passes over, with its cause and the file or
/// device. Never the text of a message, a phone number or a name. One for the process, as standard error is: the last
/// lines are kept in memory, and no file is written. Any thread may call, none ever waits for a reader.
class Log {
public:
    /// Each "{}" of `text` stands for the next value: a text or a whole number.
    template <typename... Values>
    static void Note(std::string_view text, const Values&... values) noexcept {
        Write(LogLevel::note, text, {Value(values)...});
    }
    template <typename... Values>
    static void Warning(std::string_view text, const Values&... values) noexcept {
        Write(LogLevel::warning, text, {Value(values)...});
    }
    template <typename... Values>
    static void Error(std::string_view text, const Values&... values) noexcept {
        Write(LogLevel::error, text, {Value(values)...});
    }

    /// Whether lines go to standard error as well, if somebody takes them there. They don't before the first call.
    static void UseStandardError(bool wanted);

    static constexpr std::size_t mostLines = 256;     ///< that are kept; each stands for all its repetitions
    static constexpr std::size_t longestText = 1000;  ///< bytes of a line's text; more is cut

    /// Grows with every line written, repetitions included.
    [[nodiscard]] static std::uint64_t LastNumber();
    /// The lines kept, the latest last, such as "2026-10-03 07:12:44 warning: settings are not saved to ...". One that
    /// came before ends in "(3 times since 2026-10-02 18:00:01)".
    [[nodiscard]] static std::vector<std::string> Lines();
    /// Of these, the ones that somebody who has read up to `number` is told: each at its first time, its tenth, its
    /// hundredth and so on, and once an hour.
    [[nodiscard]] static std::vector<std::string> News(std::uint64_t number);

private:
    /// One value of a line as text, good until the end of the call that wrote it.
    struct Value {
        explicit Value(std::string_view text) : shown(text) {}
        template <typename Number>
        requires std::is_integral_v<Number>
        explicit Value(Number number) : digits(std::to_string(number)), shown(digits) {}
        Value(const Value&) = delete;
        Value& operator=(const Value&) = delete;

        const std::string digits;
        const std::string_view shown;
    };

    static void Write(LogLevel level, std::string_view text, std::initializer_list<Value> values) noexcept;
};

}  // namespace zvr
