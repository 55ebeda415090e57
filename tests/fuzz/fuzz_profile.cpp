#include "platform/profile.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace zvr;

// Any file at all: what is written is read back, and no line that wasn't touched changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view value = input.substr(0, size / 4);
    Profile profile = Profile::Parse(input.substr(size / 4));

    const std::string untouched = profile.Text();
    if (Profile::Parse(untouched).Text() != untouched) {
        std::abort();
    }
    profile.SetValue("general", "USEDSKIN", value);
    profile.SetValue("a", "b", "second");
    const auto held = profile.Value("GENERAL", "usedskin");
    const std::string written = profile.Text();
    const Profile again = Profile::Parse(written);
    if (!held || held->find_first_of("\r\n") != held->npos || again.Value("General", "UsedSkin") != held ||
        again.Value("a", "b") != "second" || again.Text() != written) {
        std::abort();
    }
    // The same once more changes nothing.
    Profile repeated = Profile::Parse(written);
    repeated.SetValue("general", "usedskin", *held);
    if (repeated.Text() != written) {
        std::abort();
    }
    return 0;
}
