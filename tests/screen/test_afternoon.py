"""An afternoon of one driver with the player: each chapter goes on where the one before left off.

The short form runs with all other tests; the long one, two hundred files of every format under a sanitizer, is
tools/afternoon. ZVR_SEED repeats the random part of a run.
"""

import os
import random
import subprocess
import time
import unittest

import collection
from collection import encode, path_with, shown
from lib import SILENCE, ScreenTest, wait_for

LONG = os.environ.get("ZVR_AFTERNOON") == "long"
SEED = int(os.environ.get("ZVR_SEED", time.time_ns() % 100000))
GOOD, BROKEN = (180, 20) if LONG else (14, 4)
SECONDS = 1.5  # of a file in the mix
SONG_SECONDS = 60

FAULTS = ("AddressSanitizer", "LeakSanitizer", "runtime error:", "Assertion", "terminate called")

# What a child on the back seat would press. Nothing here ends the program or asks a question.
PRESSES = [f"mediaplayer.{word}" for word in (
    "play stop pause playpausetoggle ffwd rwnd next prev next prev mode.shuffle mode.repeat volumemute volumeup volumedown "
    "fullscreen switchlistmode listselect listselect scrolltop scrollbottom scrollpageup scrollpagedown scrollup scrolldown "
    "audiofolder videofolder show").split()] + ["app.volumeup", "app.volumedown", "app.volumemute", "playlists.show",
                                                "playlists.loadselectedplaylist", "app.goback"]


class Afternoon(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program()
        self.folder = self.zvr.folder / "collection"
        self.folder.mkdir()
        self.good = collection.make_mix(self.folder / "Mix", GOOD, BROKEN, SECONDS)
        self.make_album(self.folder / "Album")
        (self.folder / "Empty").mkdir()
        videos = self.folder / "Video"
        videos.mkdir()
        encode(videos / "a.mpeg", 15, collection.VIDEO["mpeg"])
        encode(videos / "b.avi", 15, collection.VIDEO["avi"])
        self.playlists = self.zvr.folder / "playlists"

    def make_album(self, album):
        """Long pieces, a cover, and tags in two alphabets; the folder's name is no word of any language."""
        album.mkdir()
        song = encode(album / "1 song.mp3", SONG_SECONDS, "-c:a libmp3lame -b:a 64k")
        (album / "2 old tag.mp3").write_bytes(collection.latin1_title("Crème brûlée") + song.read_bytes())
        encode(album / "3 new tag.flac", 10, metadata=["title=Žluťoučký 🎵"])
        subprocess.run(["convert", "-size", "300x200", "gradient:red-blue", album / "front.jpg"], check=True)

    def write_settings(self):
        self.zvr.write_settings({
            "general": {"SINGLECLICKLISTSELECT": 1, "POSTSORTDIRECTORYLISTINGS": 1},
            "mediaplayer": {"CURRENTFOLDER": self.folder, "AUDIOFOLDER": self.folder / "Mix", "SHOWCOVERS": 1,
                            "VIDEOFOLDER": self.folder / "Video", "PLAYLISTFOLDER": self.playlists,
                            "FADEINAFTERPAUSE": int(LONG), "FADEINONSTART": int(LONG),
                            "FILEEXTENSIONSAUDIO": ";".join([*collection.AUDIO, "mid"]), "USEFULLSCREENCTL": 1,
                            "FILEEXTENSIONSVIDEO": ";".join(collection.VIDEO)}})

    def test_an_afternoon(self):
        print(f"seed {SEED}", flush=True)
        self.write_settings()
        self.zvr.start()
        for chapter in (self.browse, self.drives, self.tags, self.skip, self.volume, self.playlists_made_and_edited,
                        self.cover, self.video, self.shuffle, self.restart_in_the_song, self.kill_in_the_song,
                        self.child, self.leave):
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
        """Position and length in seconds."""
        return [sum(int(part) * 60 ** power for power, part in enumerate(reversed(text.split(":"))))
                for text in self.zvr.get("**MEDIAPOSITION**").split("/")]

    def until_playing(self):
        begin = self.place()[0]
        wait_for(lambda: self.place()[0] > begin, "the position to move")

    def level(self):
        return self.desk.level(1.0 if LONG else 0.6)

    def open(self, *path):
        """Walks there by touch from the folder of the collection."""
        self.zvr.do("mediaplayer.show")
        wait_for(lambda: self.zvr.front() == "mediaplayer", "the player in front")
        for folder in path:
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

    def selected(self):
        grid = self.zvr.control_with("name", "medialist", "mediaplayer")
        return grid["texts"][grid["row"] - grid["top"]] if grid["row"] else None

    # The chapters.

    def browse(self):
        self.open("Mix")
        count = GOOD + BROKEN + 1  # with ".."
        self.assertEqual(self.zvr.control_with("name", "medialist")["rows"], count)
        self.zvr.do("mediaplayer.scrollbottom")
        wait_for(lambda: self.zvr.control_with("name", "medialist")["row"] == count, "the last row")
        seen = set()
        for _ in range(count // len(self.zvr.rows()) + 2):
            seen.update(self.zvr.rows())
            self.zvr.do("mediaplayer.scrollpageup")
        for name in os.listdir(os.fsencode(self.folder / "Mix")):
            self.assertIn(shown(name), seen)
        self.back()
        wait_for(lambda: self.selected() == "Mix", "the folder that was left to be selected")
        self.open("Empty")
        self.assertEqual(self.zvr.rows(), [".."])
        self.back()
        self.zvr.do("mediaplayer.switchlistmode")
        wait_for(lambda: self.zvr.rows() == [], "the empty playlist")
        self.zvr.do("mediaplayer.switchlistmode")
        wait_for(lambda: "Album" in self.zvr.rows(), "the folder again")

    def drives(self):
        """A stick that comes and goes while the drives show."""
        place = f"/mnt/zvr-test-{os.getpid()}"
        stick = self.zvr.folder / "stick.img"
        for _ in range(len(self.zvr.folder.parts) + 3):
            if self.zvr.get("**MEDIALISTCONTENT**") in ("/", ""):
                break
            self.back()
        self.zvr.do("mediaplayer.scrollbottom")
        wait_for(lambda: "/" in self.zvr.rows(), "the drive list behind the folders of the root")
        if not self.mount(stick, place):
            print("no stick: this needs the right to mount")
            return self.return_home()
        try:
            self.zvr.do("mediaplayer.scrollbottom")
            self.tap("/")
            self.zvr.do("mediaplayer.scrollbottom")
            wait_for(lambda: f"{place}/" in self.zvr.rows(), "the stick")
            self.desk.shot("afternoon-stick")
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
        self.until_title("1 song")
        waiting = {"1 song", "Crème brûlée", "Žluťoučký 🎵"}
        while waiting:  # in the order of the file system
            waiting.remove(wait_for(lambda: self.title() in waiting and self.title(), f"one of {waiting}"))
            self.zvr.do("mediaplayer.next")
        self.until_title("1 song")
        self.until_playing()
        self.assertGreater(self.level(), -45)

    def skip(self):
        self.zvr.do("mediaplayer.ffwd")
        wait_for(lambda: self.place()[0] > 16, "some steps forward")
        self.zvr.do("mediaplayer.play")
        at = self.place()[0]
        self.zvr.do("mediaplayer.rwnd")
        wait_for(lambda: self.place()[0] < at - 7, "some steps back")
        wait_for(lambda: self.place()[0] < 3, "the beginning")
        self.until_playing()
        bar = self.zvr.control_with("name", "picPosition", "mediaplayer")
        self.desk.call("tap", bar["x"] + bar["width"] // 2, bar["y"] + bar["height"] // 2)
        wait_for(lambda: abs(self.place()[0] - SONG_SECONDS / 2) < 4, "the middle")
        for _ in range(30):
            self.zvr.do("mediaplayer.next")  # as fast as a finger can: 30 is a whole number of rounds
        self.until_title("1 song")
        self.zvr.do("mediaplayer.pause")
        time.sleep(0.3)
        self.assertLess(self.level(), SILENCE)
        self.zvr.do("mediaplayer.play")
        wait_for(lambda: self.zvr.get("**MEDIAVOLUME**") == "100%", "the volume, at the end of the fade")

    def volume(self):
        def until(percent, road):
            about = {f"{percent + rounded}%" for rounded in (-1, 0, 1)}
            wait_for(lambda: self.zvr.get("**WAVEVOLUME**") in about, f"{percent} by {road}")
        self.zvr.do("app.volumedown")
        until(90, "command")
        loud = self.level()
        self.zvr.tap_tag("app.volumedown", hold=1200)
        until(60, "a button that is held")
        bar = self.zvr.control_with("name", "picVolume", "mediaplayer")
        self.desk.call("tap", bar["x"] + bar["width"] // 2, bar["y"] + bar["height"] // 2)
        until(50, "a touch of the track")
        self.desk.call("exec", "pactl", "set-sink-volume", "null", "30%")
        until(30, "another program")
        wait_for(lambda: self.level() < loud - 6, "less of it", 3)  # what the device holds was mixed before
        self.zvr.do("mediaplayer.volumeup")
        until(40, "command of the player")
        self.desk.call("exec", "pactl", "set-sink-volume", "null", "40%", "80%")
        until(80, "another program, the louder side")
        self.zvr.tap_tag("app.volumemute")
        wait_for(lambda: self.zvr.get("**MEDIAVOLUME**") == "Mute", "the mute")
        self.assertLess(self.level(), SILENCE)
        self.desk.call("exec", "pactl", "set-sink-mute", "null", "0")
        until(80, "the mute undone by another program")
        self.assertGreater(self.level(), loud - 12)

    def playlists_made_and_edited(self):
        self.zvr.do("playlists.show")
        wait_for(lambda: self.zvr.front() == "playlists", "the playlists")
        self.name_playlist("Long trip")
        self.zvr.do("playlists.new")
        self.choose_playlist("Long trip.m3u")
        self.zvr.tap_tag("playlists.loadselectedplaylist")
        wait_for(lambda: self.zvr.get("**MEDIALISTCONTENT**") == "Long trip.m3u" and self.zvr.rows() == [], "the new playlist")
        self.zvr.do("mediaplayer.switchlistmode")
        wait_for(lambda: "1 song.mp3" in self.zvr.rows(), "the folder")
        self.add("2 old tag.mp3")
        self.back()
        self.add("Mix")
        file = self.playlists / "Long trip.m3u"
        lines = file.read_bytes().split(b"\r\n")
        self.assertEqual(len(lines), GOOD + BROKEN + 2)
        self.assertEqual(set(lines[1:-1]), {os.path.join(os.fsencode(self.folder / "Mix"), name)
                                            for name in os.listdir(os.fsencode(self.folder / "Mix"))})
        self.zvr.do("mediaplayer.switchlistmode")
        wait_for(lambda: self.zvr.control_with("name", "medialist")["rows"] == GOOD + BROKEN + 1, "all lines")
        self.zvr.do("mediaplayer.scrolldown")
        self.zvr.tap_tag("mediaplayer.removefromplaylist")
        wait_for(lambda: self.zvr.control_with("name", "medialist")["rows"] == GOOD + BROKEN, "a line less")
        self.assertEqual(file.read_bytes().split(b"\r\n"), lines[:1] + lines[2:])
        self.zvr.do("mediaplayer.scrolltop")
        self.tap("2 old tag.mp3")
        self.until_title("Crème brûlée")
        self.zvr.do("playlists.show")
        self.choose_playlist("Long trip.m3u")
        self.name_playlist("Short trip")
        self.zvr.do("playlists.rename")
        self.choose_playlist("Short trip.m3u")
        for command, left in (("playlists.empty", [b""]), ("playlists.delete", None)):
            self.choose_playlist("Short trip.m3u")
            self.zvr.tap_tag(command)
            wait_for(lambda: self.zvr.dialog() == "messagebox", "the question")
            self.zvr.tap_tag("messagebox.yes")
            wait_for(lambda: self.zvr.dialog() is None, "the question to go")
            file = self.playlists / "Short trip.m3u"
            wait_for(lambda: left == (file.read_bytes().split(b"\r\n") if file.exists() else None), command)
        self.zvr.do("mediaplayer.show")
        self.zvr.do("mediaplayer.switchlistmode")
        wait_for(lambda: "Album" in self.zvr.rows(), "the folder again")

    def name_playlist(self, name):
        box = self.zvr.control_with("name", "txtCurrentPlaylistName", "playlists")
        self.desk.call("tap", box["x"] + box["width"] // 2, box["y"] + box["height"] // 2)
        self.desk.call("key", "ctrl+a")
        self.desk.call("type", name)
        wait_for(lambda: self.zvr.control_with("name", "txtCurrentPlaylistName", "playlists")["text"] == name, "the name")

    def choose_playlist(self, name):
        def grid():
            return self.zvr.control_with("name", "playlistlist", "playlists")
        wait_for(lambda: self.zvr.front() == "playlists" and name in grid()["texts"], f"playlist {name}")
        self.zvr.tap_list("playlistlist", "playlists", name)
        wait_for(lambda: grid()["row"] - grid()["top"] == grid()["texts"].index(name), "the row")

    def add(self, row):
        self.zvr.do("mediaplayer.scrolltop")
        while self.selected() != row:
            self.zvr.do("mediaplayer.scrolldown")
        self.zvr.tap_tag("mediaplayer.add2playlist")
        wait_for(lambda: self.zvr.dialog() == "messagebox", "what came of it")
        self.zvr.tap_tag("messagebox.ok")
        wait_for(lambda: self.zvr.dialog() is None, "the box to close")

    def cover(self):
        self.open("Album")
        self.tap("1 song.mp3")
        small = wait_for(lambda: self.area("picVis"), "the cover")
        self.touch(small, 50, 50)
        wait_for(lambda: self.area("picVis")["width"] > small["width"], "the cover on the whole screen")
        self.desk.shot("afternoon-whole-cover")
        self.touch(self.area("picVis"), 50, 50)
        wait_for(lambda: self.area("picVis")["width"] == small["width"], "the small cover")
        self.back()

    def video(self):
        self.open("Video")
        self.tap("a.mpeg")
        small = wait_for(lambda: self.area("wmp"), "the picture")
        self.until_playing()
        self.assertGreater(self.colors(small, "afternoon-video"), 20, "the test picture has many colours")
        self.touch(small, 50, 50)
        whole = wait_for(lambda: (now := self.area("wmp"))["width"] > small["width"] and now, "the whole screen")
        before = int(self.zvr.get("**WAVEVOLUME**").strip("%"))
        for x, y, command in ((90, 10, "volumeup"), (10, 10, "volumedown"), (10, 10, "volumedown"), (90, 50, "next"),
                              (10, 50, "prev"), (90, 90, "ffwd"), (10, 90, "rwnd"), (50, 90, "playpausetoggle"),
                              (50, 90, "playpausetoggle"), (50, 10, "volumemute"), (50, 10, "volumemute")):
            commands = self.zvr.state()["commands"]
            self.touch(whole, x, y)
            state = wait_for(lambda: (now := self.zvr.state())["commands"] > commands and now, command)
            self.assertIn(command, state["lastCommand"])
            wait_for(lambda: self.area("wmp"), "the area to stay")
        wait_for(lambda: self.zvr.get("**WAVEVOLUME**") == f"{before - 10}%", "the volume, at the end of the fade")
        self.desk.shot("afternoon-whole-video")
        self.assertEqual(self.zvr.control("skin", "reload").returncode, 0)  # such as at dusk
        wait_for(lambda: self.area("wmp") == whole, "the whole screen again")
        self.touch(whole, 50, 50)
        wait_for(lambda: self.area("wmp")["width"] == small["width"], "the small picture")
        self.zvr.do("mediaplayer.fullscreen")
        self.zvr.do("mediaplayer.fullscreen")
        wait_for(lambda: self.area("wmp")["width"] > small["width"], "the whole screen by command")
        self.touch(whole, 50, 50)
        wait_for(lambda: self.area("wmp")["width"] == small["width"], "the small picture")
        self.back()

    def colors(self, place, name):
        """How many colours there are in a place of the screen."""
        cut = f"{place['width']}x{place['height']}+{place['x']}+{place['y']}"
        return int(subprocess.run(["convert", self.desk.shot(name), "-crop", cut, "-format", "%k", "info:"],
                                  capture_output=True, text=True).stdout)

    def area(self, name):
        shown_now = [c for c in self.zvr.controls("mediaplayer") if c["name"] == name]
        return shown_now[0] if shown_now else None

    def touch(self, area, x, y):
        self.desk.call("tap", area["x"] + area["width"] * x // 100, area["y"] + area["height"] * y // 100)

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
            numbers = [int(line[:3]) for line in said.split(b"\n") if line[:3].isdigit()]
            now = [number for place, number in enumerate(numbers) if number in self.good and numbers[place - 1] != number]
            if not LONG and len(now) > len(heard):
                self.zvr.do("mediaplayer.next")
            heard = now
            return len(heard) >= GOOD
        wait_for(round_is_over, "a whole round", GOOD * (SECONDS + 2) + 30)
        self.assertEqual(sorted(heard[:GOOD]), self.good, f"{len(set(heard[:GOOD]))} of {GOOD}: {heard}")
        watch.kill()
        self.zvr.do("mediaplayer.mode.repeat")
        self.zvr.do("mediaplayer.stop")
        self.back()

    def restart_in_the_song(self):
        self.open("Album")
        self.tap("1 song.mp3")
        self.until_title("1 song")
        self.until_playing()
        self.leave_in_the_middle()
        stood = self.place()[0]
        self.leave()
        self.zvr.start()
        self.goes_on_near(stood)

    def kill_in_the_song(self):
        stood = self.leave_in_the_middle()
        if LONG:
            time.sleep(11)  # what is kept is at most ten seconds old
        else:
            self.zvr.do("mediaplayer.pause")  # kept at once
            time.sleep(0.5)
        self.zvr.process.kill()
        self.zvr.process.wait()
        self.zvr.start()
        if not LONG:
            self.zvr.do("mediaplayer.play")
        self.goes_on_near(stood + 6 * LONG, 8 if LONG else 3)

    def leave_in_the_middle(self):
        bar = self.zvr.control_with("name", "picPosition", "mediaplayer")
        self.zvr.do("mediaplayer.show")
        self.desk.call("tap", bar["x"] + bar["width"] // 2, bar["y"] + bar["height"] // 2)
        wait_for(lambda: abs(self.place()[0] - SONG_SECONDS / 2) < 5, "the middle")
        return self.place()[0]

    def goes_on_near(self, seconds, delta=4):
        self.until_title("1 song")
        wait_for(lambda: self.place()[0] > 0, "the place")
        self.assertAlmostEqual(self.place()[0], seconds, delta=delta)
        self.zvr.do("mediaplayer.show")
        wait_for(lambda: self.level() > -60, "the music", 15)

    def child(self):
        """Anything at all, quickly. The screen has to answer all the while."""
        dice = random.Random(SEED)
        done = []
        for _ in range(1500 if LONG else 20):
            done.append(dice.choice(PRESSES))
            self.zvr.do(done[-1])
            if dice.random() < 0.1:
                time.sleep(dice.random())
                begin = time.monotonic()
                self.zvr.state()
                self.assertLess(time.monotonic() - begin, 2, f"seed {SEED}: {done[-10:]}")
            if dice.random() < 0.05 and self.zvr.front() in ("mediaplayer", "playlists"):
                self.desk.call("tap", dice.randrange(800), dice.randrange(500))
            if self.zvr.dialog() is not None:
                self.desk.call("key", "Escape")


if __name__ == "__main__":
    unittest.main()
