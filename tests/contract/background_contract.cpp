#include "platform/background.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace zvr {
namespace {

TEST(BackgroundWork, IsDoneInOrderAndToldFromTheLoop) {
    EventLoop loop;
    Background background(loop);
    std::string order;
    int result = 0;
    background.Do([&result] { result = 7; }, [&] { order += "a" + std::to_string(result); });
    background.Do([&result] { ++result; }, [&] { order += "b" + std::to_string(result); });
    EXPECT_EQ(order, "") << "it answered before the loop had a turn";
    EXPECT_TRUE(loop.WaitUntil("both", [&order] { return order.size() == 4; }));
    EXPECT_EQ(order.substr(0, 1) + order.substr(2, 1), "ab");
    EXPECT_EQ(order.back(), '8');
}

TEST(BackgroundWork, TellsNobodyWhoHasGone) {
    EventLoop loop;
    bool told = false;
    std::optional<Background> background(loop);
    background->Do([] {}, [&told] { told = true; });
    background.reset();
    loop.Wait(Milliseconds{50});
    EXPECT_FALSE(told);
}

}  // namespace
}  // namespace zvr
