#include "media/mediatypes.h"
#include "platform/profile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace zvr;

// Any settings file: what counts as media is a list that can't be a path or grow without bound, and a name that ends in
// one of its entries counts.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string extensions = MediaExtensions(Profile::Parse(input));
    if (extensions.empty() || extensions.size() > 50'000 || extensions.find_first_of("/\\.") != extensions.npos) {
        std::abort();
    }
    const std::string last = extensions.substr(extensions.rfind(';') + 1);
    if (!ExtensionMatches("x." + last, extensions)) {
        std::abort();
    }
    (void)ExtensionMatches(input, extensions);
    return 0;
}
