#include "platform/autostart.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zvr {
namespace {

TEST(AutostartOfADesktop, StartsThePathThatWasSaidAndHeedsTheDesktopsSwitch) {
    std::string folder = "/tmp/zvr-test-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    const std::filesystem::path program = folder + "/it's $HOME \"a\\b` \xC3\xBC/zvr";
    std::filesystem::create_directories(program.parent_path());
    std::ofstream(program) << "#!/bin/sh\necho \"$#\" >" << folder << "/started\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const char* const before = std::getenv("XDG_CONFIG_HOME");
    const std::string kept = before == nullptr ? "" : before;
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);

    Autostart autostart;
    autostart.Set("zVR12", program.string());
    const std::string entry = folder + "/autostart/zVR12.desktop";
    const std::string start =
        "/usr/bin/python3 -c \"from gi.repository import Gio; Gio.DesktopAppInfo.new_from_filename('" + entry +
        "').launch()\"; for i in $(seq 50); do [ -s " + folder + "/started ] && exit 0; sleep 0.1; done; exit 1";
    EXPECT_EQ(std::system(start.c_str()), 0) << "a desktop starts it";
    int arguments = -1;
    std::ifstream(folder + "/started") >> arguments;
    EXPECT_EQ(arguments, 0);
    std::ofstream(entry, std::ios::app) << "Hidden=true\n";
    EXPECT_FALSE(autostart.IsSet("zVR12"));

    before == nullptr ? unsetenv("XDG_CONFIG_HOME") : setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zvr
