"""Copying folders beside music, and what ends it in the middle."""

import time
import unittest

from lib import ScreenTest, wait_for

HALF = ".zvr-copy.part"


class Copy(ScreenTest):
    def started(self, megabytes):
        program = self.program()
        self.source, self.target = program.folder / "from", program.folder / "to"
        (self.source / "Album").mkdir(parents=True)
        self.target.mkdir()
        for number in range(megabytes // 50):
            (self.source / "Album" / f"Harbour Lights, part {number}.mp3").write_bytes(b"x" * 50_000_000)
        program.write_settings({
            "general": {"FOLDERCOPYSOURCE1": self.source, "FOLDERCOPYTARGET1": self.target},
            "mediaplayer": {"AUDIOFOLDER": self.media(program) / "Test Signals"}})
        return program.start()

    def begin(self, program):
        program.do("app.startfoldercopy")
        wait_for(lambda: program.dialog() == "messagebox", "the question")
        time.sleep(0.4)
        program.do("messagebox.yes")
        wait_for(lambda: program.dialog() == "foldercopy", "the box")

    def halves(self):
        return [path for path in self.target.rglob(HALF)]

    def whole(self):
        return all(path.stat().st_size == 50_000_000 for path in self.target.rglob("*.mp3"))

    def tap_cancel(self, program):
        key = program.control_with("name", "picCancel", "foldercopy")
        self.desk.call("tap", key["x"] + key["width"] // 2, key["y"] + key["height"] // 2)

    def test_music_plays_on_and_cancel_leaves_whole_files_only(self):
        program = self.started(800)
        program.do("mediaplayer.show")
        program.tap_row("Pink Noise.mp3", times=2)
        wait_for(lambda: program.get("**MEDIAPOSITION**") > "00:01", "the music")
        time.sleep(0.5)
        self.begin(program)
        before = program.get("**MEDIAPOSITION**")
        time.sleep(1.2)
        self.desk.shot("copy")
        self.assertGreater(program.get("**MEDIAPOSITION**"), before, "the tick goes on")
        if program.dialog() == "foldercopy":
            self.tap_cancel(program)
        wait_for(lambda: program.dialog() == "messagebox", "the report")
        self.desk.shot("copy-report")
        self.assertTrue(any("1: " in text for text in program.texts("messagebox")))
        wait_for(lambda: not self.halves(), "the half file gone")
        self.assertTrue(self.whole())
        program.do("messagebox.ok")
        self.assertEqual(program.end(), 0)

    def test_the_session_ends_and_a_kill_comes_in_the_middle(self):
        program = self.started(800)
        self.begin(program)
        wait_for(self.halves, "a file under way")
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.halves(), [])
        self.assertTrue(self.whole())
        program.start()
        self.begin(program)
        wait_for(self.halves, "a file under way")
        program.process.kill()
        program.process.wait()
        self.assertTrue(self.whole())
        self.assertEqual(len(self.halves()), 1)
        for path in (self.source / "Album").iterdir():
            path.unlink()
        program.start()
        self.begin(program)
        wait_for(lambda: program.dialog() == "messagebox", "the report")
        self.assertEqual(self.halves(), [], "taken away by the next copy")
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    unittest.main()
