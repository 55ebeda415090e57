#include "platform/autostart.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace zvr {
namespace {

/// Away from the entries of whoever runs the tests.
class AutostartEntries : public ::testing::Test {
protected:
    AutostartEntries() {
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        setenv("XDG_CONFIG_HOME", (folder + "/config").c_str(), 1);
    }
    ~AutostartEntries() override {
        if (before != nullptr) {
            setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
        } else {
            unsetenv("XDG_CONFIG_HOME");
        }
        std::filesystem::remove_all(folder);
    }

    const char* const before = std::getenv("XDG_CONFIG_HOME");
    const std::string kept = before == nullptr ? "" : before;
    std::string folder = "/tmp/zvr-test-XXXXXX";
    Autostart autostart;
};

TEST_F(AutostartEntries, AreFoundByTheirNameAlone) {
    EXPECT_FALSE(autostart.IsSet("zVR12"));
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
