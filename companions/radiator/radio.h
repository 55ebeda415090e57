#pragma once

#include <charconv>
#include <chrono>
#include <cstdio>
#include <deque>
#include <string>
#include <string_view>

/// The radio as its tool sees it: what it is told, word by word, and how it stands. A tuner would be set where Tune and
/// Silence are; this one only notes what it would have played.
class Radio {
public:
    /// The answer, with its line end; empty for a word that it doesn't know.
    std::string Do(std::string_view word) {
        if (word == "status") {
            return Frequency() + (muted ? " MHz, muted\n" : " MHz\n");
        }
        if (word == "log") {
            return Log();
        }
        Note(word);
        if (word == "mute" || word == "unmute") {
            Silence(word == "mute");
            return "ok\n";
        }
        int number = 0;
        const char* const end = word.data() + word.size();
        if (word.starts_with("fr") && std::from_chars(word.data() + 2, end, number).ptr == end && number >= lowest &&
            number <= highest) {
            Tune(number);
            return "ok\n";
        }
        return {};
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr int lowest = 6000;  ///< hundredths of a megahertz
    static constexpr int highest = 16000;
    static constexpr std::size_t mostNotes = 1000;

    void Tune(int hundredths) { frequency = hundredths; }
    void Silence(bool wanted) { muted = wanted; }

    [[nodiscard]] std::string Frequency() const {
        char text[32];
        std::snprintf(text, sizeof text, "%d.%02d", frequency / 100, frequency % 100);
        return text;
    }
    void Note(std::string_view word) {
        const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
        notes.push_back(std::to_string(since) + " ms " + std::string(word) + "\n");
        if (notes.size() > mostNotes) {
            notes.pop_front();
        }
    }
    [[nodiscard]] std::string Log() const {
        std::string text;
        for (const std::string& note : notes) {
            text += note;
        }
        return text;
    }

    int frequency = 8700;
    bool muted = false;
    std::deque<std::string> notes;
    Clock::time_point start = Clock::now();
};
