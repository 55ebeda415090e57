"""Other programs under the quick bars: real windows, a real window manager."""

import re
import subprocess
import time

from lib import ScreenTest, wait_for


class Programs(ScreenTest):
    def started(self, *entries):
        program = self.program({})
        lines = ["\t".join(entry) + "\r\n" for entry in entries]
        (program.folder / "externalapps.dat").write_text("".join(lines), encoding="utf-8")
        program.start()
        program.do("externalapps.show")
        return program

    def call(self, *words):
        return self.desk.call("exec", *words, check=False)

    def windows(self):
        """By title: left, top, width, height."""
        found = {}
        for line in self.call("wmctrl", "-lG").splitlines():
            words = line.split(None, 7)
            found.setdefault(words[7], []).append(tuple(map(int, words[2:6])))
        return found

    def bars(self):
        """Left, top, width, height of each window of the program that no window manager has in its hands."""
        found = []
        for window in self.call("xdotool", "search", "--onlyvisible", "--name", "^zVR$").split():
            about = self.call("xwininfo", "-id", window)
            if "Override Redirect State: yes" in about:
                keys = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
                found.append(tuple(int(re.search(rf"{key}: +(-?\d+)", about).group(1)) for key in keys))
        return found

    def work_area_top(self):
        return int(re.search(r"= \d+, (\d+)", self.call("xprop", "-root", "_NET_WORKAREA")).group(1))

    def root_shows(self):
        return (0, 0, 800, 600) in self.windows().get("zVR", [])

    def end(self, name):
        subprocess.run(["pkill", "-f", f"xmessage -name {name}"], check=True)

    def choose(self, program, row):
        program.do("externalapps.scrolltop")
        for _ in range(row):
            program.do("externalapps.scrolldown")
        program.do("externalapps.listselect")

    def test_a_program_under_each_bar_and_the_way_back(self):
        program = self.started(("One", "xmessage -name one hello", "docked", "maximized"),
                               ("Two", "xmessage -name two hello", "floating", "normal"))
        self.choose(program, 0)
        wait_for(lambda: not self.root_shows() and "one" in self.windows(), "the first program")
        height = wait_for(self.work_area_top, "the strip of the docked bar")
        self.assertEqual(self.bars(), [(0, 0, 800, height)])
        self.assertEqual(self.windows()["N/A"], [(0, 0, 800, height)], "what keeps the strip lies below the bar")
        top = wait_for(lambda: [w for w in self.windows()["one"] if w[2] == 800], "a maximized window")[0][1]
        self.assertGreaterEqual(top, height, "it stays clear of the bar")
        self.desk.shot("programs-docked")
        # The bar's first key is the way back.
        self.desk.call("tap", 60, height // 2)
        wait_for(self.root_shows, "the main form")
        wait_for(lambda: self.work_area_top() == 0, "the strip given back")
        self.assertEqual(program.front(), "mainmenu")

        self.choose(program, 1)
        wait_for(lambda: "two" in self.windows() and not self.root_shows(), "the second program")
        x, y, width, _ = wait_for(self.bars, "the floating bar")[0]
        # A hand rests before it pulls; the window manager takes over meanwhile.
        self.call("xdotool", "mousemove", x + width // 2, y + 4, "mousedown", 1, "sleep", 0.5, "mousemove",
                  x + width // 2 - 100, y - 50, "mousemove", x + width // 2 - 200, y - 150, "sleep", 0.2, "mouseup", 1)
        wait_for(lambda: self.bars()[0][:2] == (x - 200, y - 154), "the bar where it was dragged")
        self.desk.shot("programs-floating")
        self.end("one")
        self.assertFalse(self.root_shows())
        self.end("two")
        wait_for(self.root_shows, "the main form after the last one")
        self.assertEqual(program.front(), "externalapps")
        self.assertEqual(program.end(), 0)
        self.assertEqual(program.setting("FLOATINGWINDOWX"), str(x - 200))

    def test_both_bars_lie_above_a_program_that_takes_the_whole_screen(self):
        program = self.started(("Docked", "xterm -fullscreen", "docked", "normal"),
                               ("Floating", "xterm -fullscreen -e sh", "floating", "normal"))
        for row, title, bar in ((0, "xterm", "quickbardocked"), (1, "sh", "quickbarfloating")):
            self.choose(program, row)
            wait_for(lambda: (0, 0, 800, 600) in self.windows().get(title, []), "a full-screen program")
            time.sleep(0.5)
            self.desk.shot(f"programs-full-screen-{bar}")
            # Seen or not, only what lies on top is touched.
            program.tap_tag("externalapps.backtomainmenu", bar)
            wait_for(self.root_shows, f"the way back from {title}")
            program.do("externalapps.show")

    def test_killed_under_a_program(self):
        program = self.started(("One", "xmessage -name one hello", "docked", "maximized"))
        self.choose(program, 0)
        wait_for(self.work_area_top, "the strip of the docked bar")
        program.process.kill()
        wait_for(lambda: self.work_area_top() == 0, "the strip given back")
        self.end("one")
