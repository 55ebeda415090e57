#include "platform/linux/enginelibrary.h"

#include "platform/log.h"

#include <type_traits>

#include <dlfcn.h>

namespace zvr {
namespace {

/// The number is that of the interface which the headers describe.
constexpr const char* fileName = "libvlc.so.5";

}  // namespace

bool EngineLibrary::Load() {
    void* const library = dlopen(fileName, RTLD_LAZY);
    bool complete = library != nullptr;
    const auto find = [&](auto& function, const char* name) {
        function =
            complete ? reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name)) : nullptr;
        complete = function != nullptr;
    };
#define ZVR_ENGINE_FUNCTION(name) find(name, #name);
#include "platform/linux/enginefunctions.h"
#undef ZVR_ENGINE_FUNCTION
    Dl_info where{};
    if (complete && dladdr(reinterpret_cast<const void*>(libvlc_new), &where) != 0 && where.dli_fname != nullptr) {
        folder = std::filesystem::path(where.dli_fname).parent_path();
    }
    if (!complete) {
        const char* const reason = dlerror();
        Log::Error("the media engine can't be loaded: {}", reason == nullptr ? "it is incomplete" : reason);
    }
    return complete;
}

const EngineLibrary* EngineLibrary::Loaded() {
    static EngineLibrary library;
    static const bool isThere = library.Load();
    return isThere ? &library : nullptr;
}

}  // namespace zvr
