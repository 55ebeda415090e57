"""Brightness: the display's own tables, and the darkened windows of a display that has none."""

import os
import re
import subprocess
import time
import unittest
from unittest import mock

from lib import ScreenTest, wait_for


class Ramp(ScreenTest):
    def brightness(self):
        return re.search(r"Brightness: ([0-9.]+)", self.desk.call("exec", "xrandr", "--verbose"))[1]

    def test_a_kill_at_night_and_a_start_by_day_give_the_display_back(self):
        program = self.program({"general": {"BRIGHTNESSDAY": 2}}).start()
        self.assertEqual(self.brightness(), "0.80")
        program.do("app.night")
        self.assertEqual(self.brightness(), "0.50")
        program.process.kill()
        program.process.wait()
        self.assertEqual(self.brightness(), "0.50", "nobody was there to end it")
        program.start()
        self.assertEqual(self.brightness(), "0.80", "of the whole, not of a half")
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.brightness(), "1.0")
        self.assertFalse((program.folder / "restore.bsf").exists())


class NoRamp(ScreenTest):
    @classmethod
    def setUpClass(cls):
        with mock.patch.dict(os.environ, ZVR_SCREEN_RAMP="-"):
            super().setUpClass()

    def picture(self, name):
        shot = self.desk.shot(name)
        return subprocess.run(["convert", shot, "-depth", "8", "rgb:-"], check=True, capture_output=True).stdout

    def level(self, name, bright):
        """How bright the screen is beside an earlier picture of it, in percent."""
        return round(100 * sum(self.picture(name)) / sum(bright))

    def test_the_windows_are_darkened_and_can_be_touched(self):
        program = self.program({"general": {"BRIGHTNESSNIGHT": 3, "USENIGHTSKIN": 0}})
        (program.folder / "externalapps.dat").write_text("One\txmessage -name one hello\tdocked\tnormal\r\n")
        program.start()
        program.do("playlists.show")
        time.sleep(0.5)
        bright = self.picture("dim-day")
        program.do("app.night")
        wait_for(lambda: abs(self.level("dim-night", bright) - 65) <= 2, "two thirds of the day")
        program.do("mainmenu.show")
        program.tap_tag("radio.show")
        wait_for(lambda: program.front() == "radio", "the touch below the layer")
        program.do("playlists.show")
        time.sleep(0.5)
        self.assertAlmostEqual(self.level("dim-again", bright), 65, delta=2)
        program.do("app.nonsense")
        wait_for(lambda: program.dialog() == "messagebox", "the box")
        self.desk.shot("dim-box")
        program.tap_tag("messagebox.ok")
        program.do("app.day")
        wait_for(lambda: self.level("dim-off", bright) == 100, "the day")

        program.do("externalapps.show")
        program.do("externalapps.listselect")
        wait_for(lambda: self.desk.call("exec", "xdotool", "search", "--onlyvisible", "--name", "one", check=False),
                 "the other program")
        height = wait_for(lambda: int(re.search(r"= \d+, (\d+)", self.desk.call(
            "exec", "xprop", "-root", "_NET_WORKAREA")).group(1)), "the bar")
        bar = self.picture("dim-bar-day")[:800 * 3 * height]
        program.do("app.night")
        wait_for(lambda: abs(100 * sum(self.picture("dim-bar")[:800 * 3 * height]) / sum(bar) - 65) <= 2, "the dim bar")
        self.desk.call("tap", 60, height // 2)
        wait_for(lambda: program.front() == "mainmenu", "the way back")
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    unittest.main()
