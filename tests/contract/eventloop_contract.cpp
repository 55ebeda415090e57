#include "platform/eventloop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <thread>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

TEST(Loop, RunsTimersWhileItWaits) {
    EventLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    timer.SetInterval(100ms);
    loop.Wait(250ms);
    EXPECT_EQ(ticks, 0) << "it was not started";
    timer.Start();
    loop.Wait(350ms);
    EXPECT_EQ(ticks, 3);
    timer.Stop();
    EXPECT_FALSE(timer.Enabled());
    loop.Wait(250ms);
    EXPECT_EQ(ticks, 3);
}

TEST(Loop, ATimersNewIntervalCountsFromNow) {
    EventLoop loop;
    int ticks = 0;
    Timer timer(loop, [&] { ++ticks; });
    timer.SetInterval(200ms);
    timer.Start();
    loop.Wait(150ms);
    timer.Start();  // it runs already: that changes nothing
    timer.SetInterval(100ms);
    loop.Wait(70ms);
    EXPECT_EQ(ticks, 0);
    loop.Wait(70ms);
    EXPECT_EQ(ticks, 1);
}

TEST(Loop, AHandlerThatWaitsDelaysItsOwnTimerOnly) {
    EventLoop loop;
    int inside = 0;
    int deepest = 0;
    int ends = 0;
    int others = 0;
    Timer other(loop, [&] { ++others; });
    other.SetInterval(20ms);
    Timer slow(loop, [&] {
        deepest = std::max(deepest, ++inside);
        loop.Wait(150ms);
        --inside;
        ++ends;
    });
    slow.SetInterval(20ms);
    other.Start();
    slow.Start();
    loop.WaitUntil("the second end", [&] { return ends == 2; });
    EXPECT_EQ(deepest, 1);
    EXPECT_GE(others, 8);
}

TEST(Loop, AHandlerMayEndItsOwnTimer) {
    EventLoop loop;
    std::string log;
    std::unique_ptr<Timer> timer;
    timer = std::make_unique<Timer>(loop, [&, mark = std::string("still whole")] {
        timer.reset();
        log += mark;
    });
    timer->Start();
    loop.Wait(50ms);
    EXPECT_EQ(log, "still whole");
}

TEST(Loop, PostedTasksRunInOrderOnTheLoopsThread) {
    EventLoop loop;
    std::string order;
    std::thread::id where;
    loop.Post([&] { order += 'a'; });
    loop.Post([&] {
        order += 'b';
        loop.Post([&] { order += 'd'; });
    });
    loop.Post([&] { order += 'c'; });
    EXPECT_EQ(order, "") << "not inside of Post";
    std::thread engine([&] {
        for (int i = 0; i < 1000; ++i) {
            loop.Post([&] { where = std::this_thread::get_id(); });
        }
        loop.Post([&] { order += 'e'; });
    });
    engine.join();
    EXPECT_TRUE(loop.WaitUntil("the thread's task", [&] { return order.size() == 5; }));
    EXPECT_EQ(order.substr(0, 3), "abc");
    EXPECT_EQ(where, std::this_thread::get_id());
}

TEST(Loop, ATaskThatWaitsDoesNotHoldUpTheOneBehindIt) {
    EventLoop loop;
    bool came = false;
    bool cameMeanwhile = false;
    loop.Post([&] {
        loop.Wait(100ms);
        cameMeanwhile = came;
    });
    loop.Post([&] { came = true; });
    loop.Wait(300ms);
    EXPECT_TRUE(cameMeanwhile);
}

TEST(Loop, QuitEndsEveryWaitAndLetsNoneBegin) {
    EventLoop loop;
    std::string log;
    Timer outer(loop, [&] {
        outer.Stop();
        EXPECT_FALSE(loop.WaitUntil("never", [] { return false; }));
        log += "outer ";
    });
    Timer inner(loop, [&] {
        inner.Stop();
        loop.Wait(3600s);
        log += "inner ";
    });
    Timer end(loop, [&] {
        end.Stop();
        loop.Quit(7);
        loop.Quit(8);
    });
    outer.SetInterval(10ms);
    inner.SetInterval(30ms);
    end.SetInterval(60ms);
    for (Timer* timer : {&outer, &inner, &end}) {
        timer->Start();
    }
    EXPECT_EQ(loop.Run(), 7) << "the first code counts";
    EXPECT_EQ(log, "inner outer ");
    EXPECT_TRUE(loop.IsQuitting());
    const Milliseconds before = loop.Monotonic();
    loop.Wait(3600s);
    EXPECT_FALSE(loop.WaitUntil("later", [] { return false; }));
    loop.LetPendingEventsRun();
    EXPECT_LT(loop.Monotonic() - before, 1s);
}

TEST(Loop, BothClocksGoOnTogether) {
    EventLoop loop;
    const Milliseconds monotonic = loop.Monotonic();
    const LocalTime wall = loop.Now();
    loop.Wait(200ms);
    const auto passed = (loop.Monotonic() - monotonic).count();
    EXPECT_GE(passed, 199);
    EXPECT_NEAR(static_cast<double>(loop.Now().milliseconds - wall.milliseconds), static_cast<double>(passed), 20);
}

}  // namespace
}  // namespace zvr
