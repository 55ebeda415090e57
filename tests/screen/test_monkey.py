"""A monkey at the screen: touches, keys, commands, skins, sticks, sound servers and ends, in any order and at once.

Half a minute of it runs with all other tests; tools/monkey gives it longer, under a sanitizer. ZVR_SEED repeats a run as
far as the machine's speed lets it.
"""

import os
import random
import re
import socket
import time

from lib import ROOT, ScreenTest, Zvr, wait_for

SECONDS = float(os.environ.get("ZVR_MONKEY_SECONDS", 30))
SEED = int(os.environ.get("ZVR_SEED", time.time_ns() % 100000))
FAULTS = ("AddressSanitizer", "LeakSanitizer", "runtime error:", "Assertion", "terminate called", "Segmentation")
WIDTH, HEIGHT = 800, 600
PATIENCE = 20  # seconds for an answer: a sanitizer on a busy machine takes its time

KEYS = ["Return", "Escape", "Up", "Down", "Prior", "Next", "Home", "End", "Tab", "BackSpace", "a", "shift+F1"] + [
    f"F{number}" for number in range(1, 13)]
COMMANDS = re.findall(r"^\| `([a-z0-9]+\.[a-z0-9.]+)` \|", (ROOT / "docs" / "skins.md").read_text(encoding="utf-8"), re.MULTILINE)


class Monkey(ScreenTest):
    def setUp(self):
        super().setUp()
        self.random = random.Random(SEED)
        self.zvr = Zvr(self.desk, all_skins=True)
        self.addCleanup(self.zvr.clean_up)
        self.deeds = []

    def test_half_a_minute(self):
        print(f"seed {SEED}, {SECONDS:.0f} s", flush=True)
        self.begin()
        end = time.monotonic() + SECONDS
        steps = 0
        try:
            while time.monotonic() < end:
                self.step()
                steps += 1
                if steps % 20 == 0:
                    self.look()
            self.look()
            self.leave()
        except Exception:
            print("\n".join(["seed %d, the last deeds:" % SEED] + self.deeds[-40:] + [self.zvr.said()[-6000:]]), flush=True)
            self.desk.shot("monkey-failed")
            raise
        print(f"{steps} steps", flush=True)

    def begin(self):
        choose = self.random.choice
        media = self.media(self.zvr)
        self.zvr.write_settings({
            "general": {"SHOWWARNING": choose((0, 1)), "SINGLECLICKLISTSELECT": choose((0, 1)), "USENIGHTSKIN": 1,
                        "USEDNIGHTSKIN": choose(("Dark&Silver 800x600 Night", "Dark&Silver 1280x800", "none such")),
                        "ONAPPEND": choose(("donothing", "ask", "hibernate", "reboot")), "REPETITIVEEXECTIME": 1,
                        "QUICKJUMPLIST": "Player;mediaplayer.show|Again;app.showquickjumpmenu|Next;mediaplayer.next"},
            "mediaplayer": {"AUDIOFOLDER": media, "VIDEOFOLDER": media / "Videos", "SHOWCOVERS": 1, "USEFULLSCREENCTL": 1},
            "hotkeys": {f"F{number}": choose(COMMANDS) for number in range(1, 10)}})
        self.zvr.start()

    def leave(self):
        self.assertEqual(self.zvr.end(), 0, self.zvr.said())
        self.assert_no_fault()

    def assert_no_fault(self):
        said = self.zvr.said()
        self.assertFalse([fault for fault in FAULTS if fault in said], said[-6000:])

    def look(self):
        """It lives, answers, and no sanitizer has spoken; an end that somebody asked for is followed by a start."""
        if self.zvr.process.poll() is not None:
            self.assertEqual(self.zvr.process.returncode, 0, self.zvr.said()[-6000:])
            self.assert_no_fault()
            self.begin()
            return
        try:
            wait_for(lambda: self.zvr.process.poll() is not None or self.zvr.control("state").returncode == 0, "an answer",
                     PATIENCE)
        except AssertionError:
            # Before the first screen nobody listens: a plain box may stand there.
            self.desk.call("key", "Return")
            wait_for(lambda: self.zvr.process.poll() is not None or self.zvr.control("state").returncode == 0, "an answer",
                     PATIENCE)
        self.assert_no_fault()

    def step(self):
        deeds = ((self.tap, 30), (self.double_tap, 6), (self.hold, 4), (self.drag, 8), (self.key, 10), (self.command, 20),
                 (self.nonsense, 3), (self.burst, 3), (self.side, 4), (self.reload, 2), (self.type, 2), (self.stick, 2),
                 (self.sound, 1), (self.terminate, 1), (self.cut, 1))
        deed = self.random.choices([deed for deed, weight in deeds], [weight for deed, weight in deeds])[0]
        self.deeds.append(f"{time.monotonic():.1f} {deed.__name__}")
        deed()

    def note(self, text):
        self.deeds[-1] += f" {text}"

    def place(self):
        return self.random.randrange(WIDTH), self.random.randrange(HEIGHT)

    def ask(self, *words):
        # It may be at its end or restarting: what comes back doesn't matter, that it comes back does.
        self.zvr.control(*words)

    # The deeds.

    def act(self, *words):
        self.note(words)
        self.desk.call(*words)

    def tap(self):
        self.act("tap", *self.place())

    def double_tap(self):
        self.act("tap", *self.place(), self.random.choice((2, 3)))

    def hold(self):
        self.act("hold", *self.place(), self.random.randrange(100, 900))

    def drag(self):
        self.act("drag", *self.place(), *self.place())

    def key(self):
        self.act("key", self.random.choice(KEYS))

    def command(self):
        command = self.random.choice(COMMANDS)
        if command == "app.minimize":
            return
        self.note(command)
        self.ask("do", command)

    def nonsense(self):
        self.ask("do", self.random.choice(("app.nonsense", "radio.station.77", "nothing", "mediasearch.text.\u00e4",
                                           "gps." + "x" * 3000)))

    def burst(self):
        """Many at once, so that one runs inside of the other's wait."""
        commands = [self.random.choice(COMMANDS) for _ in range(8)]
        self.note(" ".join(commands))
        lines = "".join(f"do {command}\n" for command in commands if command != "app.minimize")
        path = self.desk.call("exec", "printenv", "XDG_RUNTIME_DIR") + "/zvr.sock"
        with socket.socket(socket.AF_UNIX) as client:
            client.settimeout(PATIENCE)
            try:
                client.connect(path)
                client.sendall(lines.encode())
                if self.random.random() < 0.5:
                    client.recv(100)
            except OSError:
                pass  # at its end, or not up yet

    def side(self):
        self.ask("do", self.random.choice(("app.day", "app.night")))

    def reload(self):
        self.ask("skin", "reload")

    def type(self):
        self.desk.call("type", self.random.choice(("abc", "Evening", "a.b/c")))

    def stick(self):
        """The media go away, or come back."""
        media = self.media(self.zvr)
        away = media.with_name("away")
        if media.exists():
            media.rename(away)
        elif away.exists():
            away.rename(media)

    def sound(self):
        self.desk.call("quiet")
        time.sleep(self.random.choice((0, 0.5, 2)))
        self.desk.call("sound")

    def terminate(self):
        self.note("after a moment")
        time.sleep(self.random.random())
        self.assertEqual(self.zvr.end(), 0, self.zvr.said()[-6000:])
        self.assert_no_fault()
        self.begin()

    def cut(self):
        self.zvr.process.kill()
        self.zvr.process.wait()
        self.begin()
