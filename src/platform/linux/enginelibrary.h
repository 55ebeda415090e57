#pragma once

#include <filesystem>

#include <vlc/vlc.h>

namespace zvr {

/// The media engine's library, with each of its functions that is used. It is loaded by the running program: where it
/// is missing the driver reads a message, while the system's loader would end the program without a word.
struct EngineLibrary {
    [[nodiscard]] static const EngineLibrary* Loaded();  ///< null: it isn't there. Any thread may call; good for ever

    std::filesystem::path folder;  ///< that it lies in
#define ZVR_ENGINE_FUNCTION(name) decltype(&::name) name = nullptr;
#include "platform/linux/enginefunctions.h"
#undef ZVR_ENGINE_FUNCTION

private:
    [[nodiscard]] bool Load();
};

}  // namespace zvr
