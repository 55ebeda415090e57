#include "platform/autostart.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

TEST(AutostartEntries, AreFoundByTheirNameAlone) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path + "/config");  // not of whoever runs the tests
    Autostart autostart;
    autostart.Clear("zVR12");
    autostart.Set("zVR12", "/opt/zvr/zvr");
    autostart.Set("zVR12", "/opt/zvr/zvr");
    EXPECT_TRUE(autostart.IsSet("zVR12"));
    EXPECT_FALSE(autostart.IsSet("zVR13"));
    EXPECT_FALSE(autostart.IsSet("zVR1"));
    autostart.Clear("zVR12");
    EXPECT_FALSE(autostart.IsSet("zVR12"));
    autostart.Set("zVR12", "/opt/100 %/zvr");
    EXPECT_FALSE(autostart.IsSet("zVR12"));
}

}  // namespace
}  // namespace zvr
