#include "target.h"

#include "media/mediatypes.h"
#include "platform/profile.h"

using namespace zvr;

// Any file at all: what is written is read back, and no line that wasn't touched changes. What counts as media by it is
// a list that can't be a path or grow without bound, and a name that ends in one of its entries counts.
void zvr::Try(std::string_view input) {
    const std::string extensions = MediaExtensions(Profile::Parse(input));
    Require(!extensions.empty() && extensions.size() <= 50'000);
    Require(extensions.find_first_of("/\\.") == extensions.npos);
    Require(ExtensionMatches("x." + extensions.substr(extensions.rfind(';') + 1), extensions));
    (void)ExtensionMatches(input, extensions);

    const std::string_view value = input.substr(0, input.size() / 4);
    Profile profile = Profile::Parse(input.substr(input.size() / 4));

    const std::string untouched = profile.Text();
    Require(Profile::Parse(untouched).Text() == untouched);
    profile.SetValue("general", "USEDSKIN", value);
    profile.SetValue("a", "b", "second");
    const auto held = profile.Value("GENERAL", "usedskin");
    const std::string written = profile.Text();
    const Profile again = Profile::Parse(written);
    Require(held && held->find_first_of("\r\n") == held->npos && again.Value("General", "UsedSkin") == held);
    Require(again.Value("a", "b") == "second" && again.Text() == written);
    // The same once more changes nothing.
    Profile repeated = Profile::Parse(written);
    repeated.SetValue("general", "usedskin", *held);
    Require(repeated.Text() == written);
}
