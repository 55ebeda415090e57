#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zvr {

/// A folder that goes with the test.
class TemporaryFolder {
public:
    TemporaryFolder() : path(Make()) {}
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;

    const std::string path;  ///< without trailing separator
    /// Writes a file below the folder, with the folders on the way; returns its path.
    std::string Write(const std::string& name, std::string_view content) const {
        const std::filesystem::path file = std::filesystem::path(path) / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file.string();
    }
    [[nodiscard]] std::string ReadFile(const std::string& name) const {
        std::ifstream file(std::filesystem::path(path) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] bool Has(const std::string& name) const {
        return std::filesystem::exists(std::filesystem::path(path) / name);
    }

private:
    static std::string Make() {
        std::string pattern = (std::filesystem::temp_directory_path() / "zvr-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        return pattern;
    }
};

/// An environment variable for the time of a test.
class Environment {
public:
    Environment(const char* name, const std::string& value) : name(name) {
        if (const char* present = std::getenv(name)) {
            former = present;
        }
        ::setenv(name, value.c_str(), 1);
    }
    ~Environment() { former ? ::setenv(name, former->c_str(), 1) : ::unsetenv(name); }
    Environment(const Environment&) = delete;

private:
    const char* name;
    std::optional<std::string> former;
};

}  // namespace zvr
