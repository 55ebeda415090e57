"""An afternoon of one driver with the player: each chapter goes on where the one before left off.

The short form runs with all other tests; the long one, two hundred files of every format under a sanitizer, is
tools/afternoon.
"""

import os
import subprocess
import time

import collection
from collection import encode, shown
from lib import SILENCE, ScreenTest, wait_for

LONG = os.environ.get("ZVR_AFTERNOON") == "long"
GOOD, BROKEN = (180, 20) if LONG else (14, 4)
SECONDS = 1.5 if LONG else 6  # of a file in the mix; the short form goes on by "next", not by their ends
SONG_SECONDS = 60

FAULTS = ("AddressSanitizer", "LeakSanitizer", "runtime error:", "Assertion", "terminate called")


class Afternoon(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program()
        self.folder = self.zvr.folder / "collection"
        self.folder.mkdir()
        self.good = collection.make_mix(self.folder / "Mix", GOOD, BROKEN, SECONDS)
        album = self.folder / "Album"
        album.mkdir()
        song = encode(album / "1 song.mp3", SONG_SECONDS, "-c:a libmp3lame -b:a 64k")
        (album / "2 old tag.mp3").write_bytes(collection.latin1_title("Crème brûlée") + song.read_bytes())
        encode(album / "3 new tag.flac", 10, metadata=["title=Žluťoučký 🎵"])
        (self.folder / "Video").mkdir()
        encode(self.folder / "Video" / "a.mpeg", 15, collection.VIDEO["mpeg"])

    def test_an_afternoon(self):
        self.zvr.write_settings({
            "general": {"POSTSORTDIRECTORYLISTINGS": 1},
            "mediaplayer": {"CURRENTFOLDER": self.folder, "AUDIOFOLDER": self.folder / "Mix",
                            "FADEINAFTERPAUSE": 0, "FADEINONSTART": 0,
                            "FILEEXTENSIONSAUDIO": ";".join([*collection.AUDIO, "mid"]),
                            "FILEEXTENSIONSVIDEO": ";".join(collection.VIDEO)}})
        self.zvr.start()
        for chapter in (self.options, self.browse, self.drives, self.tags, self.volume, self.video, self.shuffle,
                        self.kill_in_the_song, self.leave):
            begin = time.monotonic()
            try:
                chapter()
            except AssertionError:
                self.desk.shot("afternoon-failed")
                raise
            self.assertFalse([fault for fault in FAULTS if fault in self.zvr.said()], self.zvr.said())
            print(f"{chapter.__name__} {time.monotonic() - begin:.1f} s", flush=True)

    def leave(self):
        """The orderly end; a sanitizer tells what leaked."""
        self.assertEqual(self.zvr.end(), 0, self.zvr.said())

    # What the driver sees and does.

    def title(self):
        return self.zvr.get("**MEDIATITLE**")

    def until_title(self, part, seconds=10):
        wait_for(lambda: part in self.title(), f"title {part}, not {self.title()}", seconds)

    def place(self):
        """The position in seconds."""
        minutes, _, seconds = self.zvr.get("**MEDIAPOSITION**").partition("/")[0].partition(":")
        return int(minutes) * 60 + int(seconds or 0)

    def level(self):
        return self.desk.level(1.0 if LONG else 0.6)

    def open(self, folder):
        """Goes there by touch from the folder of the collection."""
        self.zvr.do("mediaplayer.show")
        wait_for(lambda: self.zvr.front() == "mediaplayer", "the player in front")
        self.tap(folder)
        wait_for(lambda: self.zvr.get("**MEDIALISTCONTENT**") == folder and self.zvr.rows(), f"the content of {folder}")

    def tap(self, row):
        wait_for(lambda: row in self.zvr.rows(), f"row {row}")
        self.zvr.tap_row(row)

    def back(self):
        shown_now = self.zvr.get("**MEDIALISTCONTENT**")
        self.zvr.do("mediaplayer.scrolltop")
        self.tap("..")
        wait_for(lambda: self.zvr.get("**MEDIALISTCONTENT**") != shown_now, "the folder above")

    # The chapters.

    def options(self):
        """One tap chooses, from now on."""
        self.zvr.tap_tag("app.options")
        wait_for(lambda: self.zvr.dialog() == "options", "the options")
        self.zvr.tap("name", "chkSingleClickListSelect")
        self.zvr.tap("name", "cmdOK")
        wait_for(lambda: self.zvr.dialog() is None, "their end")
        self.assertEqual(self.zvr.setting("SINGLECLICKLISTSELECT"), "1")

    def browse(self):
        self.open("Mix")
        count = GOOD + BROKEN + 1  # with ".."
        self.zvr.do("mediaplayer.scrollbottom")
        wait_for(lambda: self.zvr.control_with("name", "medialist")["row"] == count, "the last row")
        seen = set()
        for _ in range(count // len(self.zvr.rows()) + 2):
            seen.update(self.zvr.rows())
            self.zvr.do("mediaplayer.scrollpageup")
        for name in os.listdir(os.fsencode(self.folder / "Mix")):
            self.assertIn(shown(name), seen)
        self.back()

    def drives(self):
        """A stick that comes and goes while the drives show."""
        place = f"/mnt/zvr-test-{os.getpid()}"
        while self.zvr.get("**MEDIALISTCONTENT**") not in ("/", ""):
            self.back()
        self.zvr.do("mediaplayer.scrollbottom")
        wait_for(lambda: "/" in self.zvr.rows(), "the drive list behind the folders of the root")
        if not self.mount(self.zvr.folder / "stick.img", place):
            print("no stick: this needs the right to mount")
            return self.return_home()
        try:
            self.zvr.do("mediaplayer.scrollbottom")
            self.tap("/")
            self.zvr.do("mediaplayer.scrollbottom")
            wait_for(lambda: f"{place}/" in self.zvr.rows(), "the stick")
            subprocess.run(["umount", place], check=True)
            os.rmdir(place)
            self.tap(f"{place}/")
            wait_for(lambda: f"{place}/" not in self.zvr.rows() and self.zvr.rows(), "something that can be shown")
        finally:
            subprocess.run(["umount", place], stderr=subprocess.DEVNULL)
        self.return_home()

    def mount(self, stick, place):
        if os.getuid() != 0:
            return False
        stick.write_bytes(b"")
        os.truncate(stick, 4_000_000)
        os.mkdir(place)
        self.addCleanup(lambda: os.path.isdir(place) and os.rmdir(place))
        made = subprocess.run(["/usr/sbin/mkfs.ext2", "-q", stick], capture_output=True)
        return made.returncode == 0 and subprocess.run(["mount", "-o", "loop", stick, place],
                                                       capture_output=True).returncode == 0

    def return_home(self):
        self.zvr.do("mediaplayer.audiofolder")
        wait_for(lambda: self.zvr.get("**MEDIALISTCONTENT**") == "Mix", "the music folder")
        self.back()

    def tags(self):
        self.open("Album")
        self.tap("1 song.mp3")
        waiting = {"1 song", "Crème brûlée", "Žluťoučký 🎵"}
        while waiting:  # in the order of the file system
            waiting.remove(wait_for(lambda: self.title() in waiting and self.title(), f"one of {waiting}"))
            self.zvr.do("mediaplayer.next")
        self.until_title("1 song")
        for _ in range(30):
            self.zvr.do("mediaplayer.next")  # as fast as a finger can: 30 is a whole number of rounds
        self.until_title("1 song")
        wait_for(lambda: self.place() > 0, "the position to move")
        self.assertGreater(self.level(), -45)
        self.zvr.do("mediaplayer.pause")
        time.sleep(0.3)
        self.assertLess(self.level(), SILENCE)
        self.zvr.do("mediaplayer.play")

    def volume(self):
        def until(percent, road):
            about = {f"{percent + rounded}%" for rounded in (-1, 0, 1)}
            wait_for(lambda: self.zvr.get("**WAVEVOLUME**") in about, f"{percent} by {road}")
        self.zvr.do("app.volumedown")
        until(90, "command")
        loud = self.level()
        self.desk.call("exec", "pactl", "set-sink-volume", "null", "30%")
        until(30, "another program")
        wait_for(lambda: self.level() < loud - 6, "less of it", 3)  # what the device holds was mixed before
        self.desk.call("exec", "pactl", "set-sink-volume", "null", "40%", "80%")
        until(80, "another program, the louder side")
        self.zvr.tap_tag("app.volumemute")
        wait_for(lambda: self.zvr.get("**MEDIAVOLUME**") == "Mute", "the mute")
        self.assertLess(self.level(), SILENCE)
        self.desk.call("exec", "pactl", "set-sink-mute", "null", "0")
        until(80, "the mute undone by another program")
        self.assertGreater(self.level(), loud - 12)
        self.back()

    def video(self):
        self.open("Video")
        self.tap("a.mpeg")
        small = wait_for(self.picture, "the picture")
        wait_for(lambda: self.place() > 0, "the position to move")
        cut = "{width}x{height}+{x}+{y}".format(**small)
        colors = subprocess.run(["convert", self.desk.shot("afternoon-video"), "-crop", cut, "-format", "%k", "info:"],
                                capture_output=True, text=True).stdout
        self.assertGreater(int(colors), 20, "the test picture has many colours")
        self.zvr.tap("name", "wmp")
        whole = wait_for(lambda: (now := self.picture())["width"] > small["width"] and now, "the whole screen")
        self.assertEqual(self.zvr.control("skin", "reload").returncode, 0)  # such as at dusk
        wait_for(lambda: self.picture() == whole, "the whole screen again")
        self.zvr.tap("name", "wmp")
        wait_for(lambda: self.picture()["width"] == small["width"], "the small picture")
        self.back()

    def picture(self):
        shown_now = [c for c in self.zvr.controls("mediaplayer") if c["name"] == "wmp"]
        return shown_now[0] if shown_now else None

    def shuffle(self):
        """Every file that can be played comes by once before one comes by again, and no broken one holds that up."""
        self.open("Mix")
        self.zvr.do("mediaplayer.mode.shuffle")
        watch = self.desk.spawn(self.zvr.folder / "zvrctl", "watch", "**MEDIATITLE**", stdout=subprocess.PIPE)
        self.addCleanup(watch.stdout.close)
        self.addCleanup(watch.wait)
        self.addCleanup(watch.kill)
        os.set_blocking(watch.stdout.fileno(), False)
        self.tap(next(row for row in self.zvr.rows() if row.startswith("000 ")))
        said = b""
        heard = []

        def round_is_over():
            nonlocal said, heard
            said += watch.stdout.read() or b""
            numbers = [int(line[:3]) for line in said.split(b"\n")[:-1] if line[:3].isdigit()]  # whole lines
            now = [number for before, number in zip([None, *numbers], numbers) if number in self.good and before != number]
            if not LONG and len(now) > len(heard):
                self.zvr.do("mediaplayer.next")
            heard = now
            return len(heard) >= GOOD
        wait_for(round_is_over, "a whole round", GOOD * (SECONDS + 2) + 30)
        self.assertEqual(sorted(heard[:GOOD]), self.good, f"{len(set(heard[:GOOD]))} of {GOOD}: {heard}, {said!r}")
        watch.kill()
        self.zvr.do("mediaplayer.mode.repeat")
        self.back()

    def kill_in_the_song(self):
        self.open("Album")
        self.tap("1 song.mp3")
        self.until_title("1 song")
        self.zvr.tap("name", "picPosition", "mediaplayer")
        wait_for(lambda: abs(self.place() - SONG_SECONDS / 2) < 5, "the middle")
        self.zvr.do("mediaplayer.pause")  # kept at once
        time.sleep(0.5)
        stood = self.place()
        self.zvr.process.kill()
        self.zvr.process.wait()
        self.zvr.start()
        self.zvr.do("mediaplayer.play")
        self.until_title("1 song")
        wait_for(lambda: self.place() > 0, "the place")
        self.assertAlmostEqual(self.place(), stood, delta=3)
        wait_for(lambda: self.level() > -60, "the music", 15)
