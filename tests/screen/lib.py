"""A real program on a private display with a sound server of its own, and the driver's finger.

Tests look at the program through zvrctl, as a script of a user would, and touch it through the X server, as a finger
would. Screenshots go to build/screenshots.
"""

import json
import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
STAGE = Path(os.environ.get("ZVR_STAGE", ROOT / "build" / "screen-stage"))
UNDER = os.environ.get("ZVR_UNDER", "").split()  # a command that runs the program, such as a debugger
SHOTS = ROOT / "build" / "screenshots"
SILENCE = -75.0  # dB; below it nothing is heard


class Desk:
    """A private display with window manager, message bus and sound server."""

    def __init__(self, name, parts=()):
        self.environment = dict(os.environ, ZVR_SCREEN=f"test-{os.getpid()}-{name}")
        self.call("start", *parts)

    def call(self, *words, check=True):
        done = subprocess.run([ROOT / "tools" / "screen", *map(str, words)], env=self.environment, text=True,
                              capture_output=True, timeout=60)
        if check and done.returncode != 0:
            raise AssertionError(f"screen {' '.join(map(str, words))}: {done.stderr}")
        return done.stdout.strip()

    def spawn(self, *words, **options):
        """Starts a program inside; the process is the program's own."""
        return subprocess.Popen([ROOT / "tools" / "screen", "exec", *map(str, words)], env=self.environment,
                                **{"stdin": subprocess.DEVNULL, **options})

    def shot(self, name):
        SHOTS.mkdir(parents=True, exist_ok=True)
        self.call("shot", SHOTS / f"{name}.png")
        return SHOTS / f"{name}.png"

    def level(self, seconds=1.0):
        """Loudness of the best half second, RMS in dB. Minus infinity is silence."""
        return float(self.call("level", seconds))

    def brightness(self):
        return re.search(r"Brightness: ([0-9.]+)", self.call("exec", "xrandr", "--verbose"))[1]

    def stop(self):
        self.call("stop")


def wait_for(condition, what, seconds=10.0):
    """Waits until the condition gives something true, and returns that."""
    end = time.monotonic() + seconds
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"waited {seconds} s in vain: {what}")
        time.sleep(0.05)


class Zvr:
    """A program folder of its own, and the program that runs in it."""

    def __init__(self, desk, settings=None, all_skins=False):
        """`settings` maps sections to keys to values; None leaves out the settings file."""
        self.desk = desk
        self.folder = Path(tempfile.mkdtemp(prefix="zvr-test-"))
        other_skins = shutil.ignore_patterns("Dark&Silver 1*", "Dark&Silver 800x480*", "* Night")
        shutil.copytree(STAGE, self.folder, ignore=None if all_skins else other_skins, dirs_exist_ok=True)
        self.settings_file = self.folder / "zvr.ini"
        self.process = None
        self.through = []  # a command that starts the program, such as env with a variable
        if settings is not None:
            self.write_settings(settings)

    def write_settings(self, settings):
        sections = {"general": {"SHOWWARNING": 0}, **settings}
        sections["general"] = {"SHOWWARNING": 0, **sections["general"]}
        lines = []
        for section, keys in sections.items():
            lines += [f"[{section}]"] + [f"{key}={value}" for key, value in keys.items()]
        self.settings_file.write_text("\n".join(lines) + "\n", encoding="utf-8")

    def setting(self, key):
        """The value that the settings file has for a key now, or None."""
        for line in self.settings_file.read_text(encoding="utf-8", errors="replace").splitlines():
            name, found, value = line.partition("=")
            if found and name == key:
                return value
        return None

    def launch(self, *arguments):
        """Starts the program and does not wait for it."""
        with open(self.folder / "log", "wb") as log:
            self.process = self.desk.spawn(*UNDER, *self.through, self.folder / "zvr", *arguments, cwd=self.folder, stdout=log,
                                           stderr=subprocess.STDOUT)
        return self.process

    def start(self, *arguments):
        """Starts the program and waits for its first screen."""
        self.launch(*arguments)
        wait_for(self.is_up, "the first screen", 20)
        return self

    def is_up(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the program has ended with {self.process.returncode}: {self.said()}")
        return self.control("state").returncode == 0

    def said(self):
        return (self.folder / "log").read_text(errors="replace")

    def control(self, *words):
        return subprocess.run([ROOT / "tools" / "screen", "exec", self.folder / "zvrctl", *words], text=True,
                              env=self.desk.environment, capture_output=True, timeout=30)

    def do(self, command):
        done = self.control("do", command)
        if done.returncode != 0:
            raise AssertionError(f"do {command}: {done.stderr}")

    def get(self, token):
        """What a label with the token shows, unbreakable blanks as blanks."""
        done = self.control("get", token)
        if done.returncode != 0:
            raise AssertionError(f"get {token}: {done.stderr}")
        return done.stdout.rstrip("\n").replace("\u00a0", " ")

    def state(self):
        return json.loads(self.control("state").stdout)

    def front(self):
        return self.state()["front"]

    def dialog(self):
        return self.state()["dialog"]

    def controls(self, form=None):
        """The controls that show on a form; on the open dialog or the form in front if none is named."""
        state = self.state()
        shown = state["forms"][form or state["dialog"] or state["front"]]["controls"]
        return [control for control in shown if control["visible"]]

    def control_with(self, key, value, form=None):
        """The topmost control that shows and has that name, tag or kind."""
        fitting = [control for control in self.controls(form) if control[key] == value]
        if not fitting:
            raise AssertionError(f"no control with {key} {value} on {form or self.front()}")
        return fitting[-1]

    def texts(self, form=None):
        """All that stands on a form in labels."""
        return [control["caption"].replace("\u00a0", " ") for control in self.controls(form) if control["caption"]]

    def rows(self):
        return self.control_with("name", "medialist", "mediaplayer")["texts"]

    def tap(self, key, value, form=None, hold=None):
        """Touches the middle of a control."""
        control = self.control_with(key, value, form)
        place = control["x"] + control["width"] // 2, control["y"] + control["height"] // 2
        self.desk.call(*(("hold", *place, hold) if hold else ("tap", *place)))

    def tap_tag(self, tag, form=None, hold=None):
        self.tap("tag", tag, form, hold)

    def tap_row(self, text, times=1):
        """Taps the media list's row with that text."""
        self.tap_list("medialist", "mediaplayer", text, times)

    def tap_list(self, name, form, text, times=1):
        """Taps the row of a list with that text, as soon as a finger may: rows that just came are deaf, and a tap so
        soon behind another on the same spot is the second of a pair."""
        time.sleep(0.6)
        grid = self.control_with("name", name, form)
        place = grid["texts"].index(text)
        self.desk.call("tap", grid["x"] + grid["width"] // 3, grid["y"] + int((place + 0.5) * grid["rowHeight"]), times)

    def play(self, file, until="00:02"):
        """Plays a file of the folder that the player shows first, and waits until it stands there."""
        self.do("mediaplayer.show")
        wait_for(lambda: file in self.rows(), f"the row {file}")
        self.tap_row(file, times=2)
        wait_for(lambda: self.get("**MEDIAPOSITION**") >= until, f"{file} at {until}", 20)

    def boxes(self):
        """Titles of the plain boxes of the system that the program shows: the ones for faults without a skin."""
        ids = self.desk.call("exec", "xdotool", "search", "--onlyvisible", "--pid", self.process.pid, check=False)
        titles = []
        for window in ids.split():
            about = self.desk.call("exec", "xprop", "-id", window, "_NET_WM_WINDOW_TYPE", "_NET_WM_NAME", check=False)
            if "_NET_WM_WINDOW_TYPE_DIALOG" in about:
                titles.append(about.rpartition("= ")[2].strip('"'))
        return titles

    def expect_fatal_box(self, shot):
        """Waits for a box of the system, takes its picture, closes it; the program must end by itself, refusing."""
        wait_for(self.boxes, "a box of the system")
        time.sleep(0.3)
        self.desk.shot(shot)
        self.desk.call("key", "Return")
        return self.process.wait(timeout=10)

    def end(self):
        """Asks for the orderly end and gives the exit code."""
        self.process.terminate()
        return self.process.wait(timeout=15)

    def clean_up(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class ScreenTest(unittest.TestCase):
    """One desk for a class of tests, a program folder for each test."""

    parts = ()

    @classmethod
    def setUpClass(cls):
        cls.desk = Desk(cls.__name__, cls.parts)
        cls.addClassCleanup(cls.desk.stop)

    def setUp(self):
        # The mixer outlives the program; no test shall hear what another has set.
        self.desk.call("exec", "pactl", "set-sink-volume", "null", "100%")
        self.desk.call("exec", "pactl", "set-sink-mute", "null", "0")

    def program(self, settings=None):
        program = Zvr(self.desk, settings)
        self.addCleanup(program.clean_up)
        return program

    def media(self, program):
        return program.folder / "media"
