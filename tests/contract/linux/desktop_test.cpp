#include "platform/desktop.h"
#include "platform/instance.h"
#include "platform/linux/eventloop.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

/// A panel of another program.
class Panel {
public:
    explicit Panel(std::uint32_t process, bool isDock = true) {
        connection = xcb_connect(nullptr, nullptr);
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        window = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 0, 0, 200, 20, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        const xcb_atom_t type = Atom(isDock ? "_NET_WM_WINDOW_TYPE_DOCK" : "_NET_WM_WINDOW_TYPE_NORMAL");
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, Atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32,
                            1, &type);
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, Atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1,
                            &process);
        xcb_map_window(connection, window);
        xcb_flush(connection);
    }
    ~Panel() { xcb_disconnect(connection); }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    [[nodiscard]] bool IsShown() const {
        auto* const reply =
            xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr);
        const bool shown = reply != nullptr && reply->map_state == XCB_MAP_STATE_VIEWABLE;
        std::free(reply);
        return shown;
    }

private:
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const {
        auto* const reply = xcb_intern_atom_reply(
            connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr);
        const xcb_atom_t atom = reply->atom;
        std::free(reply);
        return atom;
    }

    xcb_connection_t* connection;
    xcb_window_t window;
};

TEST(Taskbar, OtherProgramsPanelsGoAndComeBack) {
    EventLoop loop;
    const Panel panel(1);
    const Panel window(1, false);
    const Panel own(static_cast<std::uint32_t>(getpid()));
    loop.Wait(300ms);
    ASSERT_TRUE(panel.IsShown() && window.IsShown() && own.IsShown());
    {
        Desktop killed;
        killed.HideTaskbar();
        loop.Wait(300ms);
        EXPECT_FALSE(panel.IsShown());
        EXPECT_TRUE(window.IsShown());
        EXPECT_TRUE(own.IsShown());
    }
    Desktop next;
    next.ShowTaskbar();
    loop.Wait(300ms);
    EXPECT_TRUE(panel.IsShown()) << "a later run repairs what the killed one left";
    next.HideTaskbar();
    next.HideTaskbar();
    next.ShowTaskbar();
    next.ShowTaskbar();
    loop.Wait(300ms);
    EXPECT_TRUE(panel.IsShown());
}

TEST(OneInstance, AnotherProcessIsRefusedUntilTheFirstOneEnds) {
    const TemporaryFolder folder;
    const Environment runtime("XDG_RUNTIME_DIR", folder.path);
    const auto claimInAnotherProcess = [] {
        const pid_t child = fork();
        if (child == 0) {
            Instance other;
            _exit(other.Claim() ? 1 : 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status) == 1;
    };
    {
        Instance first;
        EXPECT_TRUE(first.Claim());
        EXPECT_TRUE(first.Claim()) << "it is ours already";
        EXPECT_FALSE(claimInAnotherProcess());
    }
    EXPECT_TRUE(claimInAnotherProcess());
    EXPECT_TRUE(claimInAnotherProcess()) << "the mark goes with its process";
}

}  // namespace
}  // namespace zvr
