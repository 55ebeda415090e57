"""The options under a finger: settings of all nine tabs are changed where they stand, saved, and in force."""

import time
import unittest

from lib import ScreenTest, Zvr, wait_for

# Tab, control and its number, what is typed into it (None: a tap does it), key and value in the settings file.
SETTINGS = (
    (1, "chkSingleClickListSelect", 0, None, "SINGLECLICKLISTSELECT", "1"),
    (1, "chkPostSortDirectoryListings", 0, None, "POSTSORTDIRECTORYLISTINGS", "1"),
    (1, "optShutdownSegment", 2, None, "ONAPPEND", "ask"),
    (2, "chkUseNightSkin", 0, None, "USENIGHTSKIN", "1"),
    (2, "lstNightSkinsRow", 2, None, "USEDNIGHTSKIN", "Dark&Silver 800x600 Night"),
    (2, "sfrmchkSwitchDayNight", 0, None, "AUTOSWITCHDAYNIGHT", "1"),
    (2, "txtNightHour", 0, "21", "SWITCHTONIGHT", "2100"),
    (3, "txtSkipSecsMore", 0, None, "SKIPSECONDS", "6"),
    (3, "optDispRemainSegment", 2, None, "DISPLAYREMAIN", "1"),
    (3, "chkShowCovers", 0, None, "SHOWCOVERS", "1"),
    (4, "chkExponentialVolume", 0, None, "EXPONENTIALVOLUMECHANGES", "1"),
    (4, "txtVolSteppingBox", 0, "150", "VOLSTEPPING", "99"),
    (4, "txtSpeedMinBox", 0, "85", "SPEEDMIN", "85"),
    (5, "chkModuleRadio", 0, None, "USEDMODULES", None),
    (5, "cboIndexRefreshMore", 0, None, "REFRESHTIMESPAN", "1"),
    (6, "chkOnCallPause", 0, None, "ONCALLPAUSE", "0"),
    (6, "chkGpsUseMetric", 0, None, "USEMETRICVALUES", "0"),
    (7, "txtFKeyCommand", 3, "gps.show", "F3", "gps.show"),
    (8, "optNaviQuickbarSegment", 2, None, "NAVIQUICKBAR", "floating"),
    (9, "txtVideofolder", 0, "/opt/videos", "VIDEOFOLDER", "/opt/videos"),
)


class Options(ScreenTest):
    def find(self, program, name, index=0):
        fitting = [c for c in program.controls("options") if c["name"] == name and c["index"] == index]
        return fitting[0] if fitting else None

    def tap(self, program, name, index=0):
        control = self.find(program, name, index)
        self.assertIsNotNone(control, f"{name} {index}")
        self.desk.call("tap", control["x"] + control["width"] // 2, control["y"] + control["height"] // 2)
        time.sleep(0.15)

    def go_to(self, program, tab, name, index):
        self.tap(program, "tab", tab)
        for key in ["cmdPageUp"] * 6 + ["cmdPageDown"] * 6:
            if self.find(program, name, index):
                return
            self.tap(program, key)

    def test_twenty_settings_by_touch(self):
        program = Zvr(self.desk, {}, all_skins=True)
        self.addCleanup(program.clean_up)
        for name in (program.folder / "skins").iterdir():  # two of them, so that the list's second row is the night's
            if not name.name.startswith("Dark&Silver 800x600"):
                name.rename(program.folder / name.name)
        program.start().do("app.options")
        wait_for(lambda: program.dialog() == "options", "the options")
        for tab, name, index, typed, _, _ in SETTINGS:
            self.go_to(program, tab, name, index)
            self.tap(program, name, index)
            if typed:
                self.desk.call("key", "ctrl+a")
                self.desk.call("type", typed)
                self.desk.call("key", "Return")  # the keyboard on the screen goes
                time.sleep(0.5)
        self.desk.shot("options")
        self.tap(program, "cmdOK")
        wait_for(lambda: program.dialog() is None, "the options' end")
        self.assertEqual({key: program.setting(key) for *_, key, value in SETTINGS if value},
                         {key: value for *_, key, value in SETTINGS if value})
        self.assertNotIn("radio", program.setting("USEDMODULES"))
        self.desk.call("key", "F3")
        wait_for(lambda: program.front() == "gps", "the new hot key")
        self.assertEqual(program.end(), 0)
        program.start().do("app.options")
        wait_for(lambda: program.dialog() == "options", "the options")
        self.assertNotIn("radio", program.state()["forms"])
        for tab, name, index, typed, _, value in SETTINGS:
            if typed:
                self.go_to(program, tab, name, index)
                self.assertIn(self.find(program, name, index)["text"], value)


if __name__ == "__main__":
    unittest.main()
