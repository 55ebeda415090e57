"""What a driver does on the first evening: start, find music, hear it, change the volume, look at a video."""

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


if __name__ == "__main__":
    unittest.main()
