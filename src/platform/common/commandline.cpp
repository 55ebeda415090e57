#include "platform/processes.h"
#include "platform/text.h"

#include <unistd.h>
#include <cstdlib>
#include <filesystem>

namespace zvr {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view quotes = "\"'";
constexpr std::string_view suffix = ".exe";

bool IsProgram(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

/// The program's file of that path, or of that name in PATH. Empty for none.
std::string FindProgram(std::string_view name) {
    const std::string given(name);
    if (given.find('\0') != std::string::npos) {
        return {};
    }
    if (given.find('/') != std::string::npos) {
        return IsProgram(given) ? given : std::string();
    }
    const char* const path = std::getenv("PATH");
    for (const std::string_view folder : text::Split(path == nullptr ? "/usr/bin:/bin" : path, ':')) {
        const std::string file = std::string(folder) + "/" + given;
        if (!folder.empty() && !given.empty() && IsProgram(file)) {
            return file;
        }
    }
    return {};
}

std::string FindWithOrWithoutSuffix(std::string_view name) {
    std::string file = FindProgram(name);
    if (file.empty() && text::EndsWithAscii(name, suffix)) {
        file = FindProgram(name.substr(0, name.size() - suffix.size()));
    }
    return file;
}

std::vector<std::string> Arguments(std::string_view rest) {
    std::vector<std::string> arguments;
    bool inWord = false;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const char character = rest[i];
        if (blanks.find(character) != std::string_view::npos) {
            inWord = false;
            continue;
        }
        if (!inWord) {
            arguments.emplace_back();
            inWord = true;
        }
        // A quote without its partner is a letter, as in "It's".
        const std::size_t partner =
            quotes.find(character) == std::string_view::npos ? std::string_view::npos : rest.find(character, i + 1);
        if (partner != std::string_view::npos) {
            arguments.back() += rest.substr(i + 1, partner - i - 1);
            i = partner;
        } else {
            arguments.back() += character;
        }
    }
    return arguments;
}

}  // namespace

std::optional<ProgramCall> ReadCommandLine(std::string_view commandLine) {
    const std::size_t first = commandLine.find_first_not_of(blanks);
    if (first == std::string_view::npos || commandLine.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view line = commandLine.substr(first);
    std::string file;
    std::size_t end = line.front() == '"' ? line.find('"', 1) : std::string_view::npos;
    if (end != std::string_view::npos) {
        file = FindWithOrWithoutSuffix(line.substr(1, end - 1));
        ++end;
    } else {
        end = 0;
        while (file.empty() && end < line.size()) {
            const std::size_t wordBegins = line.find_first_not_of(blanks, end);
            if (wordBegins == std::string_view::npos) {
                break;
            }
            end = std::min(line.find_first_of(blanks, wordBegins), line.size());
            const std::string_view run = line.substr(0, end);
            // Only a path may have blanks in it; names are single words.
            if (wordBegins == 0 || run.find('/') != std::string_view::npos) {
                file = FindWithOrWithoutSuffix(run);
            }
        }
    }
    if (file.empty()) {
        return std::nullopt;
    }
    return ProgramCall{file, Arguments(line.substr(end))};
}

}  // namespace zvr
