"""Copying folders beside music, and what ends it in the middle."""

import time

from lib import ScreenTest, wait_for


class Copy(ScreenTest):
    def begin(self):
        self.program.do("app.startfoldercopy")
        wait_for(lambda: self.program.dialog() == "messagebox", "the question")
        time.sleep(0.4)
        self.program.do("messagebox.yes")
        wait_for(self.halves, "a file under way")
        self.assertEqual(self.program.dialog(), "foldercopy")

    def halves(self):
        return list(self.target.rglob(".zvr-copy.part"))

    def assert_whole(self):
        self.assertEqual([path for path in self.target.rglob("*.mp3") if path.stat().st_size != 50_000_000], [])

    def test_music_plays_on_and_cancel_and_the_sessions_end_leave_whole_files_only(self):
        program = self.program = self.program({})
        source, self.target = program.folder / "from", program.folder / "to"
        source.mkdir()
        self.target.mkdir()
        for number in range(16):
            (source / f"Harbour Lights, part {number}.mp3").write_bytes(b"x" * 50_000_000)
        program.write_settings({"general": {"FOLDERCOPYSOURCE1": source, "FOLDERCOPYTARGET1": self.target},
                                "mediaplayer": {"AUDIOFOLDER": program.folder / "media" / "Test Signals"}})
        program.start()
        program.play("Pink Noise.mp3")
        self.begin()
        before = program.get("**MEDIAPOSITION**")
        wait_for(lambda: program.get("**MEDIAPOSITION**") > before, "the tick to go on", 2)
        if program.dialog() == "foldercopy":
            program.tap("name", "picCancel")
        wait_for(lambda: program.dialog() == "messagebox", "the report")
        wait_for(lambda: not self.halves(), "the half file gone")
        self.assert_whole()
        program.do("messagebox.ok")
        self.begin()
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.halves(), [])
        self.assert_whole()
