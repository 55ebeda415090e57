#include "platform/processes.h"

#include "platform/linux/eventloop.h"
#include "platform/linux/otherwindows.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>
#include <algorithm>
#include <csignal>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

class StartedPrograms : public testing::Test {
protected:
    EventLoop loop;
    Processes processes;
    int ends = 0;

    ProcessId Start(const std::string& commandLine, StartState how = StartState::normal,
                    const std::string& folder = {}) {
        const auto id = processes.Start(commandLine, {how, folder, [this] { ++ends; }});
        EXPECT_TRUE(id) << commandLine;
        return id.value_or(0);
    }
    /// Others act in their own time.
    bool Becomes(const std::function<bool()>& condition) {
        for (int i = 0; i < 200 && !condition(); ++i) {
            loop.Wait(25ms);
        }
        return condition();
    }
    bool Ended(ProcessId id) {
        return loop.WaitUntil("a program's end", [&] { return !processes.Lives(id); });
    }
};

TEST_F(StartedPrograms, LiveInWhatTheyLeaveBehind) {
    // As browsers and wrappers do: each goes at once, and what stays is in a group and session of its own.
    const TemporaryFolder around;
    around.Write("next", "[ $1 = 0 ] && exec sleep 0.5; setsid sh $0 $(($1 - 1)) &");
    const ProcessId id = Start("sh " + around.path + "/next 30");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(Ended(id));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 500ms) << "one of them was overlooked";
    EXPECT_TRUE(Ended(Start("true")));
    EXPECT_EQ(ends, 2);
}

TEST_F(StartedPrograms, FindThemselvesInTheirFolderWithNothingOfOurs) {
    const TemporaryFolder around;
    const std::string folder = around.path + "/where it is";
    std::filesystem::create_directory(folder);
    const int ours = open("/dev/null", O_RDONLY);
    EXPECT_TRUE(Ended(Start("sh -c 'pwd > told; ls -m /proc/$$/fd >> told; cat >> told'", StartState::normal, folder)));
    const std::string text = around.ReadFile("where it is/told");
    EXPECT_EQ(text.substr(0, folder.size() + 1), folder + "\n");
    EXPECT_EQ(text.find(", " + std::to_string(ours)), std::string::npos) << "a file of ours is open there: " << text;
    close(ours);
}

TEST_F(StartedPrograms, WindowsAreFoundMaximizedAndBroughtToTheFront) {
    OtherWindows windows;
    ASSERT_TRUE(windows.Connect("this test"));
    const auto isActive = [&](xcb_window_t window) {
        return windows.Numbers(windows.Root(), windows.Atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW) ==
               std::vector<std::uint32_t>{window};
    };
    // The wrapper's window is its child's, and that tells nobody whose it is.
    const ProcessId wide = Start("sh -c 'xev -name wide >/dev/null; true'", StartState::maximized);
    ASSERT_TRUE(Becomes([&] { return processes.HasWindow(wide); }));
    ASSERT_FALSE(windows.Managed().empty());
    const xcb_window_t first = windows.Managed().back();
    EXPECT_TRUE(Becomes([&] {
        const auto states = windows.Numbers(first, windows.Atom("_NET_WM_STATE"), XCB_ATOM_ATOM);
        return std::find(states.begin(), states.end(), windows.Atom("_NET_WM_STATE_MAXIMIZED_VERT")) != states.end();
    }));
    ASSERT_TRUE(Becomes([&] { return isActive(first); }));

    const ProcessId quiet = Start("sh -c 'xev -name quiet >/dev/null'", StartState::withoutFocus);
    ASSERT_TRUE(Becomes([&] { return processes.HasWindow(quiet); }));
    const xcb_window_t second = windows.Managed().back();
    loop.Wait(500ms);
    EXPECT_TRUE(Becomes([&] { return isActive(first); })) << "it keeps the keys";
    EXPECT_TRUE(processes.Activate(quiet));
    EXPECT_TRUE(Becomes([&] { return isActive(second); }));
    EXPECT_TRUE(processes.Activate(wide));
    EXPECT_TRUE(Becomes([&] { return isActive(first); }));

    kill(-wide, SIGTERM);
    kill(-quiet, SIGTERM);
    EXPECT_TRUE(Ended(wide) && Ended(quiet));
}

}  // namespace
}  // namespace zvr
