"""The on-screen keyboard: a real window manager, real windows that are typed into, taps on its keys."""

import os
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from lib import STAGE, ScreenTest, wait_for

# As the keyboard is drawn on 800x600: rows from its top, and where the middles of a row's keys lie, in columns.
TOP, MARGIN, PITCH, KEY = 600 - 240, 6, 58, 53
LETTERS = {"en": ("qwertyuiop", "asdfghjkl", "zxcvbnm"), "de": ("qwertzuiopü", "asdfghjklöä", "yxcvbnmß")}
SIGNS = ("1234567890", "-_'&()!?@#", "  +=%:;/  ")


class Keyboard(ScreenTest):
    def setUp(self):
        super().setUp()
        self.language = "en"
        self.page = "letters"
        self.call("setxkbmap", "us")

    def call(self, *words):
        return self.desk.call("exec", *words, check=False)

    def spawn(self, *words):
        process = self.desk.spawn(*words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def keyboard(self, language="en"):
        self.language = language
        process = self.spawn("env", f"LC_ALL={language}", STAGE / "zvr_osk")
        wait_for(self.shows, "the keyboard")
        return process

    def shows(self):
        return self.call("xdotool", "search", "--onlyvisible", "--name", "^zVR keyboard$").split()

    def terminal(self, *options):
        """A terminal in front, and the file that gets what is typed into it."""
        typed = Path(tempfile.mkdtemp(prefix="zvr-typed-")) / "typed"
        self.addCleanup(typed.unlink, missing_ok=True)
        before = self.call("xdotool", "getwindowfocus")
        self.spawn("xterm", "-u8", *options, "-e", f"cat >{typed}")
        wait_for(lambda: typed.exists() and self.call("xdotool", "getwindowfocus") != before, "a terminal")
        return typed

    def columns(self):
        return len(LETTERS[self.language][0]) if self.page == "letters" else 10

    def place(self, row, column):
        unit = (800 - 2 * MARGIN + 5) / self.columns()
        return round(MARGIN + column * unit - 2.5), TOP + MARGIN + row * PITCH + KEY // 2

    def strokes(self, text):
        """The places to tap for a text."""
        for sign in text:
            letters = LETTERS[self.language]
            rows = letters if self.page == "letters" else SIGNS
            small = sign.lower() if sign != "ß" else sign
            if sign == "\n":
                yield self.place(3, self.columns() - 0.7)
                continue
            if sign == " ":
                yield self.place(3, self.columns() / 2)
                continue
            if not any(small in row for row in rows):
                yield self.place(3, 0.6)
                self.page = "signs" if self.page == "letters" else "letters"
                rows = letters if self.page == "letters" else SIGNS
            row = next(i for i, row in enumerate(rows) if small in row)
            if sign != small:
                yield self.place(2, 0.7)
            yield self.place(row, (self.columns() - len(rows[row])) / 2 + rows[row].index(small) + 0.5)

    def type(self, text, pause=0.02):
        words = ["xdotool"]
        for x, y in self.strokes(text):
            words += ["mousemove", x, y, "mousedown", 1, "sleep", pause, "mouseup", 1, "sleep", pause]
        self.call(*words)

    def expect(self, typed, text):
        wait_for(lambda: typed.read_text(encoding="utf-8").endswith("\n"), f"a line in place of {typed.read_text()!r}")
        self.assertEqual(typed.read_text(encoding="utf-8"), text)

    def down(self):
        """Keys that a program has pressed and not released."""
        keys = self.call("xinput", "query-state", "Virtual core XTEST keyboard")
        self.assertIn("=up", keys, "the server was not understood")
        return [line for line in keys.splitlines() if line.endswith("=down")]

    def test_types_whatever_the_layout_of_the_keyboard_lacks(self):
        for layout, language, text in (("us", "de", "Grüße ÄÖÜ zy?\n"), ("ru", "en", "Hello #7 @you\n"),
                                       ("de", "de", "Straße: ja/nein\n")):
            with self.subTest(layout=layout):
                self.call("setxkbmap", layout)
                self.page = "letters"
                typed = self.terminal()
                keyboard = self.keyboard(language)
                self.type(text)
                self.expect(typed, text)
                keyboard.terminate()
                keyboard.wait()
                self.assertIn(f"layout:     {layout}\n", self.call("setxkbmap", "-query") + "\n")
        self.assertEqual(self.down(), [])
        # One that is killed leaves the layout that it needed; the next one takes it away with it.
        self.call("setxkbmap", "ru")
        for end, left in (("kill", "ru,us"), ("terminate", "ru")):
            keyboard = self.keyboard("en")
            wait_for(lambda: "ru,us" in self.call("setxkbmap", "-query"), "the layout with its letters")
            getattr(keyboard, end)()
            keyboard.wait()
            self.assertRegex(self.call("setxkbmap", "-query"), f"layout: +{left}(\n|$)")

    def test_above_a_full_screen_program_and_as_fast_as_taps_come(self):
        typed = self.terminal("-fullscreen")
        self.keyboard()
        self.type("abcdefghijklmnopqrst\n", pause=0)
        self.expect(typed, "abcdefghijklmnopqrst\n")
        self.desk.shot("keyboard-above-full-screen")
        # Another one that comes later doesn't cover it; a second start is the first one.
        typed = self.terminal("-fullscreen")
        self.assertEqual(self.spawn(STAGE / "zvr_osk").wait(), 0)
        self.assertEqual(len(self.shows()), 1)
        self.type("over it\n")
        self.expect(typed, "over it\n")

    def test_killed_while_a_key_repeats(self):
        typed = self.terminal()
        for _ in range(5):
            keyboard = self.keyboard()
            x, y = self.place(2, 9.3)
            self.call("xdotool", "mousemove", x, y, "mousedown", 1, "sleep", 0.6)
            os.kill(keyboard.pid, signal.SIGKILL)
            keyboard.wait()
            self.call("xdotool", "mouseup", 1)
            self.assertEqual(self.down(), [])
        # Whatever a run may leave pressed, the next one releases.
        self.call("xdotool", "keydown", "Shift_L")
        self.assertEqual(len(self.down()), 1)
        self.keyboard()
        wait_for(lambda: not self.down(), "the key to be released")
        self.type("fine\n")
        self.expect(typed, "fine\n")

    def test_with_the_program(self):
        program = self.program({"general": {"USEDLANGUAGE": "de"}}).start()
        program.do("playlists.show")
        # Beside the only box of the screen: it needs no tap of its own.
        program.tap_tag("externalapps.onscreenkeyboard")
        wait_for(self.shows, "the keyboard")
        self.language = "de"
        time.sleep(0.2)
        self.type("Grüße")
        wait_for(lambda: program.control_with("kind", "textbox")["text"].endswith("Grüße"), "the letters in the box")
        self.desk.shot("keyboard-playlists")
        # A question that it would lie over sends it away, as does a screen without a box.
        program.do("app.nonsense")
        wait_for(lambda: not self.shows(), "no keyboard over a message")
        program.do("messagebox.ok")
        program.do("externalapps.onscreenkeyboard")
        wait_for(self.shows, "the keyboard again")
        program.do("mainmenu.show")
        wait_for(lambda: not self.shows(), "no keyboard where no box is")
        # It was there for another program, which ends.
        (program.folder / "externalapps.dat").write_text("One\txterm\tdocked\tnormal\r\n")
        self.assertEqual(program.end(), 0)
        program.start()
        program.do("externalapps.show")
        program.do("externalapps.listselect")
        wait_for(lambda: self.call("wmctrl", "-l").count("xterm"), "the other program")
        program.do("externalapps.onscreenkeyboard")
        wait_for(self.shows, "the keyboard over it")
        time.sleep(0.5)
        self.assertTrue(self.shows())
        self.call("wmctrl", "-c", "xterm")
        wait_for(lambda: not self.shows(), "no keyboard over the list of programs")
