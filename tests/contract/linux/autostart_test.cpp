#include "platform/autostart.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

TEST(AutostartOfADesktop, StartsThePathThatWasSaidAndHeedsTheDesktopsSwitch) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    const std::string program =
        folder.Write("it's $HOME \"a\\b` \xC3\xBC/zvr", "#!/bin/sh\necho \"$#\" >" + folder.path + "/started\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);

    Autostart autostart;
    autostart.Set("zVR12", program);
    const std::string entry = folder.path + "/autostart/zVR12.desktop";
    const std::string start =
        "/usr/bin/python3 -c \"from gi.repository import Gio; Gio.DesktopAppInfo.new_from_filename('" + entry +
        "').launch()\"; for i in $(seq 50); do [ -s " + folder.path + "/started ] && exit 0; sleep 0.1; done; exit 1";
    EXPECT_EQ(std::system(start.c_str()), 0) << "a desktop starts it";
    EXPECT_EQ(folder.ReadFile("started"), "0\n") << "arguments";
    std::ofstream(entry, std::ios::app) << "Hidden=true\n";
    EXPECT_FALSE(autostart.IsSet("zVR12"));
    folder.Write("autostart/zVR12.desktop", "Hidden=true\nType=Application\nExec=zvr\n");
    EXPECT_FALSE(autostart.IsSet("zVR12")) << "in the first line too";
}

}  // namespace
}  // namespace zvr
