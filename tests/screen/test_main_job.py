"""What a driver does on the first evening: start, find music, hear it, change the volume, look at a video."""

import subprocess
import time
import unittest

from lib import SILENCE, ScreenTest, wait_for


def newcomer(program):
    """The settings that ./run gives to somebody without music."""
    media = program.folder / "media"
    return {"general": {"SINGLECLICKLISTSELECT": 1, "POSTSORTDIRECTORYLISTINGS": 1},
            "mediaplayer": {"AUDIOFOLDER": media, "VIDEOFOLDER": media / "Videos", "CURRENTFOLDER": media}}


class MainJob(ScreenTest):
    def start(self, **general):
        program = self.program()
        settings = newcomer(program)
        settings["general"].update(general)
        program.write_settings(settings)
        return program.start()

    def play(self, program, folder="Test Signals", file="Pink Noise.mp3"):
        """Opens the player and plays a file of the sample media by touch."""
        program.tap_tag("mediaplayer.show")
        wait_for(lambda: program.front() == "mediaplayer", "the player in front")
        wait_for(lambda: folder in program.rows(), "the folder's row")
        program.tap_row(folder)
        wait_for(lambda: file in program.rows(), "the file's row")
        program.tap_row(file, times=2)
        wait_for(lambda: self.seconds(program) > 0, "the position to move")

    @staticmethod
    def seconds(program):
        """The position that the label shows, such as 00:07/00:30."""
        minutes, found, seconds = program.get("**MEDIAPOSITION**").partition("/")[0].partition(":")
        return int(minutes) * 60 + int(seconds) if found else 0

    def test_from_the_start_to_music(self):
        program = self.start(SHOWWARNING=1)
        wait_for(lambda: program.dialog() == "messagebox", "the driver's warning")
        self.desk.shot("warning")
        program.tap_tag("messagebox.ok")
        wait_for(lambda: program.dialog() is None, "the warning to close")
        self.assertEqual(program.front(), "mainmenu")
        self.desk.shot("mainmenu")
        ready = program.get("**MEDIATITLE**")
        self.assertLess(self.desk.level(), SILENCE)

        self.play(program, "Evening Drive", "02 Wet Asphalt.mp3")
        time.sleep(1)
        self.desk.shot("playing")
        wait_for(lambda: "Wet Asphalt" in program.get("**MEDIATITLE**") * 3, "the title from the file's tags")
        self.assertNotEqual(program.get("**MEDIATITLE**"), ready)
        self.assertGreater(self.desk.level(), -45)

        def knob():
            return program.control_with("name", "picPosSlider", "mediaplayer")["x"]

        before = knob(), self.seconds(program)
        time.sleep(2.2)
        after = knob(), self.seconds(program)
        self.assertGreater(after[0], before[0], "the knob of the position moves")
        self.assertIn(after[1] - before[1], (2, 3))
        self.desk.shot("playing-later")

        program.tap_tag("mediaplayer.pause")
        time.sleep(0.5)
        self.assertLess(self.desk.level(), SILENCE)
        self.desk.shot("paused")
        stood = self.seconds(program)
        program.tap_tag("mediaplayer.pause")    # where the other key of the pair lies on top by now
        wait_for(lambda: self.seconds(program) > stood, "the position to move again")

        self.assertEqual(program.end(), 0)
        self.assertEqual(program.setting("CURRENTFOLDER"), str(self.media(program) / "Evening Drive"))

    def test_volume_buttons_repeat_and_mute_silences(self):
        program = self.start()
        self.play(program)
        for _ in range(5):
            program.do("app.volumedown")
        wait_for(lambda: program.get("**WAVEVOLUME**") == "50%", "half the volume")
        quiet = self.desk.level()
        program.tap_tag("app.volumeup", hold=1200)
        wait_for(lambda: program.get("**WAVEVOLUME**") == "80%", "three steps")
        time.sleep(0.7)
        self.assertEqual(program.get("**WAVEVOLUME**"), "80%", "no step after the finger has lifted")
        loud = self.desk.level()
        self.assertGreater(loud, quiet + 6)

        program.tap_tag("app.volumemute")
        wait_for(lambda: program.get("**MEDIAVOLUME**") == "Mute", "the label to say so")
        self.assertLess(self.desk.level(), SILENCE)
        self.desk.shot("muted")
        program.tap_tag("app.volumemute")
        wait_for(lambda: program.get("**MEDIAVOLUME**") == "80%", "the volume again")
        self.assertAlmostEqual(self.desk.level(), loud, delta=3)

    def test_the_volume_fades_in_after_a_pause(self):
        program = self.start()
        self.play(program)
        program.do("mediaplayer.pause")
        time.sleep(0.3)
        program.do("mediaplayer.play")
        wait_for(lambda: program.get("**MEDIAVOLUME**") == "Fade", "the fade", 2)
        self.assertNotEqual(program.get("**WAVEVOLUME**"), "100%")
        wait_for(lambda: program.get("**MEDIAVOLUME**") == "100%", "the end of the fade", 8)

    def test_a_single_tap_selects_where_two_are_asked_for(self):
        program = self.start(SINGLECLICKLISTSELECT=0)
        program.tap_tag("mediaplayer.show")
        wait_for(lambda: "Test Signals" in program.rows(), "the folder's row")
        program.tap_row("Test Signals")
        grid = wait_for(lambda: (g := program.control_with("name", "medialist"))["row"] and g, "a selected row")
        self.assertEqual(grid["texts"][grid["row"] - grid["top"]], "Test Signals")
        time.sleep(0.6)
        program.tap_row("Test Signals", times=2)
        wait_for(lambda: "1 kHz.wav" in program.rows(), "the folder's content")

    def test_video_shows_and_a_touch_on_it_fills_the_screen(self):
        program = self.start()
        self.play(program, "Videos", "Test Picture.mpg")
        video = wait_for(lambda: self.video(program), "the video's area")
        self.assertGreater(self.colors(video, "video"), 20, "the test picture has many colours")
        self.desk.call("tap", video["x"] + video["width"] // 2, video["y"] + video["height"] // 2)
        wait_for(lambda: self.video(program)["width"] > video["width"], "the whole form")
        self.assertFalse([c for c in program.controls("mediaplayer") if c["name"] == "medialist"])
        time.sleep(0.5)
        whole = self.video(program)
        self.assertGreater(self.colors(whole, "video-fullscreen"), 20)
        self.desk.call("tap", whole["x"] + whole["width"] // 2, whole["y"] + whole["height"] // 2)
        wait_for(lambda: self.video(program)["width"] == video["width"], "the small area again")

    def video(self, program):
        shown = [c for c in program.controls("mediaplayer") if c["kind"] == "video"]
        return shown[0] if shown else None

    def colors(self, place, name):
        """How many colours there are in a place of the screen."""
        time.sleep(0.7)
        shot = self.desk.shot(name)
        cut = f"{place['width']}x{place['height']}+{place['x']}+{place['y']}"
        said = subprocess.run(["convert", shot, "-crop", cut, "-format", "%k", "info:"], capture_output=True, text=True)
        return int(said.stdout)

    def test_a_playlist_and_broken_files_in_a_folder(self):
        program = self.program()
        folder = program.folder / "mixed"
        folder.mkdir()
        (folder / "aa broken.mp3").write_bytes(b"no music at all" * 400)
        (folder / "bb good.mp3").write_bytes((self.media(program) / "Evening Drive/01 Ring Road.mp3").read_bytes())
        (folder / "cc list.m3u").write_text("gone.mp3\nbb good.mp3\n")
        settings = newcomer(program)
        settings["mediaplayer"].update(CURRENTFOLDER=folder, FILEEXTENSIONSAUDIO="mp3;m3u", DISPLAYFILENAMES=0)
        program.write_settings(settings)
        program.start()
        program.tap_tag("mediaplayer.show")
        for row in ("aa broken.mp3", "cc list.m3u"):
            wait_for(lambda: row in program.rows(), "the rows")
            program.tap_row(row)
            wait_for(lambda: "Ring Road" in program.get("**MEDIATITLE**") * 3, f"the good file, from {row}")
            wait_for(lambda: self.seconds(program) >= 1, "the position to move")
            program.do("mediaplayer.stop")
            time.sleep(0.5)
        self.assertIsNone(program.dialog())


if __name__ == "__main__":
    unittest.main()
