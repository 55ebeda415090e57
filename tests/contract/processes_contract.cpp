#include "contract/sleeper.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

class OtherPrograms : public testing::Test {
protected:
    EventLoop loop;
    Processes processes;
    contract::Sleeper sleeper{loop, processes};
    int ends = 0;

    std::optional<ProcessId> Start() {
        return processes.Start("\"" + sleeper.path + "\" 60", {.ended = [this] { ++ends; }});
    }
};

TEST_F(OtherPrograms, LiveUntilTheyEndAndThatIsToldOnce) {
    const auto first = Start();
    const auto second = Start();
    ASSERT_TRUE(first && second);
    EXPECT_NE(*first, *second);
    EXPECT_TRUE(processes.Lives(*first));
    sleeper.Kill(*first);
    EXPECT_EQ(ends, 0) << "told from the loop, not before";
    EXPECT_TRUE(loop.WaitUntil("the first one's end", [&] { return ends > 0; }));
    EXPECT_FALSE(processes.Lives(*first));
    EXPECT_TRUE(processes.Lives(*second));
    sleeper.Kill(*second);
    EXPECT_TRUE(loop.WaitUntil("the second one's end", [&] { return !processes.Lives(*second); }));
    EXPECT_EQ(ends, 2);
}

TEST_F(OtherPrograms, AreFoundByTheNameOfTheirFile) {
    EXPECT_EQ(processes.Find(sleeper.name), 0);
    const auto id = Start();
    ASSERT_TRUE(id);
    EXPECT_EQ(processes.Find(sleeper.name), *id);
    EXPECT_EQ(processes.Find("ZVR-Sleeper.EXE"), *id);
    EXPECT_EQ(processes.Find("sleeper"), 0);
    EXPECT_EQ(processes.Find(""), 0);
    sleeper.Kill(*id);
    EXPECT_TRUE(loop.WaitUntil("the end", [&] { return ends > 0; }));
    EXPECT_EQ(processes.Find(sleeper.name), 0);
}

TEST_F(OtherPrograms, ThatAreNotThereAreNotStarted) {
    EXPECT_FALSE(processes.Start(""));
    EXPECT_FALSE(processes.Start("/no/such program"));
    EXPECT_FALSE(processes.Lives(0));
    EXPECT_FALSE(processes.HasWindow(0));
    EXPECT_FALSE(processes.Activate(0));
}

}  // namespace
}  // namespace zvr
