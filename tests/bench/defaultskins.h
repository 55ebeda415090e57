#pragma once

#include "support/minimal.h"
#include "support/paths.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace zvr {

/// Names of the skins that the build has drawn, those of the default's size; empty if it has drawn none.
inline std::vector<std::string> DefaultSkins() {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(ZVR_BINARY_DIR) + "/skins", none)) {
        if (entry.path().filename().string().find("800x600") != std::string::npos) {
            names.push_back(entry.path().filename().string());
        }
    }
    return names;
}

/// A program in its main menu with the drawn skins in its folder.
inline std::unique_ptr<Bench> BenchWithDefaultSkins() {
    auto bench = std::make_unique<Bench>();
    std::filesystem::create_directories(bench->folder.path + "/skins");
    for (const std::string& name : DefaultSkins()) {
        std::filesystem::copy(std::string(ZVR_BINARY_DIR) + "/skins/" + name, bench->folder.path + "/skins/" + name,
                              std::filesystem::copy_options::recursive);
    }
    bench->Start();
    return bench;
}

}  // namespace zvr
