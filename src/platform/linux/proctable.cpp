#include "platform/linux/proctable.h"

#include "platform/text.h"

#include <fcntl.h>
#include <unistd.h>
#include <array>
#include <charconv>
#include <filesystem>

namespace zvr::proctable {
namespace {

std::string FileOf(pid_t id, std::string_view name) {
    return "/proc/" + std::to_string(id) + "/" + std::string(name);
}

/// Empty when it can't be read: a process that ends in the middle takes its files along.
std::string Content(const std::string& path) {
    std::string content;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return content;
    }
    std::array<char, 4096> piece{};
    for (ssize_t length = 0; (length = read(file, piece.data(), piece.size())) > 0;) {
        content.append(piece.data(), static_cast<std::size_t>(length));
    }
    close(file);
    return content;
}

std::string LinkTarget(const std::string& path) {
    std::error_code error;
    return std::filesystem::read_symlink(path, error).string();
}

std::string BareName(std::string_view path) {
    return text::Lower(path.substr(path.rfind('/') + 1));
}

/// A text that its interpreter was given to run, not one that an editor has open.
bool IsScript(pid_t id, const std::string& path) {
    const std::string full = path.starts_with('/') ? path : LinkTarget(FileOf(id, "cwd")) + "/" + path;
    if (access(full.c_str(), X_OK) != 0) {
        return false;
    }
    const int file = open(full.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    std::array<char, 2> begins{};
    const bool is = file >= 0 && read(file, begins.data(), begins.size()) == 2 && begins[0] == '#' && begins[1] == '!';
    if (file >= 0) {
        close(file);
    }
    return is;
}

}  // namespace

std::optional<Process> Look(pid_t id) {
    // "12 (a name) S 1 12 ...": the name may have anything in it, so what follows is behind its last bracket.
    const std::string stat = Content(FileOf(id, "stat"));
    const std::size_t name = stat.rfind(')');
    if (name == std::string::npos) {
        return std::nullopt;
    }
    const std::vector<std::string_view> words = text::Words(std::string_view(stat).substr(name + 1));
    if (words.size() < 3) {
        return std::nullopt;
    }
    const auto number = [](std::string_view word) {
        pid_t value = 0;
        std::from_chars(word.data(), word.data() + word.size(), value);
        return value;
    };
    return Process{id, number(words[1]), number(words[2]), words[0] != "Z" && words[0] != "X"};
}

std::vector<Process> All() {
    std::vector<Process> processes;
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        pid_t id = 0;
        const auto [stop, fault] = std::from_chars(name.data(), name.data() + name.size(), id);
        if (fault != std::errc() || stop != name.data() + name.size()) {
            continue;
        }
        if (const auto process = Look(id); process && process->lives) {
            processes.push_back(*process);
        }
    }
    return processes;
}

bool HasInEnvironment(pid_t id, std::string_view entry) {
    const std::string environment = Content(FileOf(id, "environ"));
    for (const std::string_view piece : text::Split(environment, '\0')) {
        if (piece == entry) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> NamesOf(pid_t id) {
    std::vector<std::string> names;
    std::string program = LinkTarget(FileOf(id, "exe"));
    constexpr std::string_view deleted = " (deleted)";
    if (program.ends_with(deleted)) {
        program.resize(program.size() - deleted.size());
    }
    names.push_back(BareName(program));
    const std::string commandLine = Content(FileOf(id, "cmdline"));
    const std::vector<std::string_view> words = text::Split(commandLine, '\0');
    names.push_back(BareName(words[0]));
    if (words.size() > 1 && IsScript(id, std::string(words[1]))) {
        names.push_back(BareName(words[1]));
    }
    return names;
}

}  // namespace zvr::proctable
