"""Brightness: the display's own tables, and the darkened windows of a display that has none."""

import os
import re
import subprocess
import time
from unittest import mock

from lib import ScreenTest, wait_for


class Ramp(ScreenTest):
    def test_a_kill_at_night_and_a_start_by_day_give_the_display_back(self):
        program = self.program({"general": {"BRIGHTNESSDAY": 2}}).start()
        self.assertEqual(self.desk.brightness(), "0.80")
        program.do("app.night")
        self.assertEqual(self.desk.brightness(), "0.50")
        program.process.kill()
        program.process.wait()
        self.assertEqual(self.desk.brightness(), "0.50", "nobody was there to end it")
        program.start()
        self.assertEqual(self.desk.brightness(), "0.80", "of the whole, not of a half")
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.desk.brightness(), "1.0")
        self.assertFalse((program.folder / "restore.bsf").exists())


class NoRamp(ScreenTest):
    @classmethod
    def setUpClass(cls):
        with mock.patch.dict(os.environ, ZVR_SCREEN_RAMP="-"):
            super().setUpClass()

    def picture(self, name, place="800x600+0+0"):
        shot = self.desk.shot(name)
        return subprocess.run(["convert", shot, "-crop", place, "-depth", "8", "rgb:-"], check=True,
                              capture_output=True).stdout

    def level(self, name, bright, place="800x600+0+0"):
        """How bright the screen is beside an earlier picture of it, in percent."""
        return round(100 * sum(self.picture(name, place)) / sum(bright))

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

    def test_films_and_the_keyboard_are_darkened_with_them(self):
        program = self.program()
        films = program.folder / "films"
        films.mkdir()
        for name, seconds in (("1.avi", 60), ("2.mpg", 60)):
            subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", f"smptebars=s=320x240:d={seconds}",
                            films / name], check=True, timeout=60)
        program.write_settings({"general": {"BRIGHTNESSNIGHT": 4, "USENIGHTSKIN": 0},
                                "mediaplayer": {"CURRENTFOLDER": films}})
        program.start()
        program.play("1.avi", "00:00")
        video = wait_for(lambda: [c for c in program.controls("mediaplayer") if c["kind"] == "video"], "the film")[0]
        place = "{width}x{height}+{x}+{y}".format(**video)
        time.sleep(0.5)
        bright = self.picture("dim-film-day", place)
        program.do("app.night")
        wait_for(lambda: abs(self.level("dim-film", bright, place) - 50) <= 2, "half of the film's light")
        program.do("mediaplayer.next")  # a film that begins by night
        wait_for(lambda: "2" in program.get("**MEDIATITLE**"), "the next film")
        wait_for(lambda: abs(self.level("dim-film-next", bright, place) - 50) <= 2, "its picture, no brighter")
        program.do("app.day")
        wait_for(lambda: abs(self.level("dim-film-off", bright, place) - 100) <= 2, "all of its light")
        program.do("mediaplayer.stop")

        program.do("playlists.show")
        program.do("externalapps.onscreenkeyboard")
        wait_for(lambda: self.desk.call("exec", "xdotool", "search", "--onlyvisible", "--name", "^zVR keyboard$",
                                        check=False), "the keyboard")
        time.sleep(0.5)
        keys = "800x240+0+360"
        bright = self.picture("dim-keys-day", keys)
        program.do("app.night")
        wait_for(lambda: abs(self.level("dim-keys", bright, keys) - 50) <= 2, "half of the keyboard's light")
        self.assertEqual(program.end(), 0)
