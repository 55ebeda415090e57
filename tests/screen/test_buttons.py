"""Every button of the default skin, touched on a real screen: its command arrives, and once."""

import re
import time
import unittest

from lib import ScreenTest, wait_for

FORMS = ("mainmenu", "mediaplayer", "playlists", "mediasearch", "gallery", "dvdplayer", "radio", "phone", "gps",
         "externalapps")
# These come up only over another program, or to write a message.
NOT_SHOWN_YET = {"smsbox", "quickbardocked", "quickbarfloating"}

# Commands that run another one, and which.
FOLLOWED = {"app.goback": r"^\w+\.show$", "playlists.loadselectedplaylist": r"^mediaplayer\.show$",
            "externalapps.navigation": r"^mainmenu\.show$"}


def middle(button):
    return button["x"] + button["width"] // 2, button["y"] + button["height"] // 2


def covers(button, x, y):
    return (button["x"] <= x < button["x"] + button["width"] and button["y"] <= y < button["y"] + button["height"])


class Buttons(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program()
        self.zvr.write_settings({"general": {"ONAPPEND": "ask", "SINGLECLICKLISTSELECT": 1},
                                 "externalapps": {"NAVIEXE": "true", "OSKEXE": "true"},  # they end at once
                                 "gps": {"COMPORT": 1},
                                 "mediaplayer": {"CURRENTFOLDER": self.media(self.zvr) / "Test Signals"}})
        # A line on which nobody speaks: without one its screen would tell of that with each visit.
        (self.zvr.folder / "devices.ini").write_text("[ports]\n1=/dev/ptmx\n")
        self.zvr.start()
        # Something plays, so that either key of play and pause has its turn.
        self.zvr.do("mediaplayer.show")
        wait_for(lambda: "1 kHz.wav" in self.zvr.rows(), "the folder's rows")
        self.zvr.tap_row("1 kHz.wav")
        wait_for(lambda: self.zvr.get("**MEDIAPOSITION**")[:5] > "00:00", "the position to move")

    def buttons(self, state, form):
        return [c for c in state["forms"][form]["controls"] if c["name"] == "abutton" and c["visible"]]

    def settle(self, form):
        """No dialog, the form in front, and nothing under way that would count."""
        state = self.zvr.state()
        while state["dialog"]:
            self.desk.call("key", "Escape")
            wait_for(lambda: self.zvr.dialog() != state["dialog"], f"{state['dialog']} to close")
            state = self.zvr.state()
        if state["front"] != form:
            self.zvr.do(f"{form}.show")
            wait_for(lambda: self.zvr.front() == form, f"{form} in front")
            state = self.zvr.state()
        return state

    def touch(self, state, form, button):
        """Touches where the button is; gives the one on top there, and the state after it."""
        x, y = middle(button)
        topmost = [b for b in self.buttons(state, form) if covers(b, x, y)][-1]
        self.desk.call("tap", x, y)
        command = topmost["tag"].lower()
        own = 1 + (command in FOLLOWED)
        wait_for(lambda: self.zvr.state()["commands"] >= state["commands"] + own, f"{form}: {command}", 5)
        if command == "externalapps.navigation":
            time.sleep(0.5)  # the window manager brings the main form back
        after = self.zvr.state()
        self.assertEqual(after["commands"], state["commands"] + own, f"{form}: {command}")
        self.assertRegex(after["lastCommand"], FOLLOWED.get(command, f"^{re.escape(command)}$"), form)
        return topmost, after

    def touch_all(self, form):
        """Number of buttons touched. Of two on one spot the second comes up by itself if its command works yet."""
        touched, waiting = set(), None
        for _ in range(3):  # a key touched in between may bring the first of two back
            for button in self.buttons(self.settle(form), form):
                if button["index"] in touched:
                    continue
                topmost, after = self.touch(self.settle(form), form, button)
                touched.add(topmost["index"])
                if topmost["index"] != button["index"]:
                    waiting = after["dialog"]
        missed = {b["tag"] for b in self.buttons(self.settle(form), form) if b["index"] not in touched}
        if missed:
            self.assertEqual(waiting, "messagebox", f"{form}: {missed} never came to the front")
        return len(touched)

    def test_each_button_of_each_screen_runs_its_command_once(self):
        total = 0
        for form in FORMS:
            with self.subTest(form=form):
                count = self.touch_all(form)
                self.assertGreater(count, 5, form)
                total += count
        print(f"{total} buttons touched", flush=True)
        self.assertEqual(set(FORMS) | NOT_SHOWN_YET | {"messagebox"},
                         {name for name in self.zvr.state()["forms"] if self.buttons(self.zvr.state(), name)})

    def test_answers_of_the_message_box(self):
        self.settle("playlists")
        for answer in ("no", "yes"):
            self.zvr.do("playlists.scrolltop")
            self.zvr.do("playlists.delete")
            self.answer(answer)
        self.zvr.do("app.nonsense")
        self.answer("ok")

    def answer(self, word):
        wait_for(lambda: self.zvr.dialog() == "messagebox", "the message box")
        state = self.zvr.state()
        button = next(b for b in self.buttons(state, "messagebox") if b["tag"] == f"messagebox.{word}")
        self.desk.call("tap", *middle(button))
        wait_for(lambda: self.zvr.dialog() is None, "the box to close")
        after = self.zvr.state()
        self.assertEqual((after["commands"], after["lastCommand"]), (state["commands"] + 1, f"messagebox.{word}"))


if __name__ == "__main__":
    unittest.main()
