"""The loop of somebody who draws a skin: change a file, look."""

import re
import unittest

from lib import ScreenTest, wait_for

SKIN = "Dark&Silver 800x600"


class Skins(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program({}).start()
        self.file = self.zvr.folder / "skins" / SKIN / "skindata.xml"

    def home(self):
        return self.zvr.control_with("tag", "mainmenu.show", "radio")["x"]

    def rewrite(self, section, pattern, text):
        """Changes the first place behind the section's beginning; gives the place's line."""
        xml = self.file.read_text(encoding="utf-8")
        begin = xml.index(f"<{section}>")
        place = re.compile(pattern).search(xml, begin)
        self.file.write_text(xml[:place.start()] + text + xml[place.end():], encoding="utf-8")
        return xml.count("\n", 0, place.start()) + 1

    def test_reload_shows_the_change_on_the_screen_in_front(self):
        self.zvr.do("radio.show")
        self.rewrite("radio", r"<posx>8</posx>", "<posx>12</posx>")
        before = self.home()
        self.assertEqual(self.zvr.control("skin", "reload").returncode, 0)
        self.assertEqual((self.home() - before, self.zvr.front()), (4, "radio"))
        # Labels are filled by the next tick.
        wait_for(lambda: self.zvr.get("**TIME_SHORT**") in self.zvr.texts("radio"), "the clock on the new labels")

    def test_broken_skin_is_told_to_the_caller_and_not_to_the_driver(self):
        self.zvr.do("radio.show")
        before = self.home()
        self.rewrite("radio", r"<posx>8</posx>", "<posx>12</posx>")
        line = self.rewrite("vis", r"<width>\d+</width>", "<width>0</width>")
        done = self.zvr.control("skin", "reload")
        self.assertEqual(done.returncode, 1)
        self.assertIn(f"skindata.xml:{line}: mediaplayer/vis: ", done.stdout)
        self.assertIn("=WMP_POS_INVALID", done.stdout)
        self.assertIn("would not load", done.stderr)
        self.assertEqual((self.home(), self.zvr.front(), self.zvr.boxes()), (before, "radio", []))
        self.file.write_text("<skin>", encoding="utf-8")
        self.assertIn("can't be read", self.zvr.control("skin", "reload").stdout)
        self.assertEqual(self.home(), before)


if __name__ == "__main__":
    unittest.main()
