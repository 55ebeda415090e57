"""Two things at once: dialogs that are asked for while others are open, skins that change, sessions that end."""

import socket
import time
import unittest
from pathlib import Path

from lib import UNDER, ScreenTest, Zvr, wait_for

NIGHT = {"USENIGHTSKIN": 1, "USEDNIGHTSKIN": "Dark&Silver 800x600 Night"}


class Dialogs(ScreenTest):
    def started(self, **general):
        general = {"QUICKJUMPLIST": "Radio;radio.show|Pictures;gallery.show|Again;app.showquickjumpmenu", **general}
        program = Zvr(self.desk, all_skins=True)
        self.addCleanup(program.clean_up)
        signals = self.media(program) / "Test Signals"
        program.write_settings({"general": general, "mediaplayer": {"AUDIOFOLDER": signals}})
        return program.start()

    def wait_dialog(self, program, name):
        wait_for(lambda: program.dialog() == name, f"the dialog {name}")
        time.sleep(0.4)  # a dialog that follows another is deaf for a moment

    def tap(self, program, name, index=0):
        form = program.state()["forms"][program.dialog()]
        found = [c for c in form["controls"] if c["name"] == name and c["index"] == index and c["visible"]][0]
        self.desk.call("tap", found["x"] + found["width"] // 2, found["y"] + found["height"] // 2)

    def test_quick_jump_asked_for_three_times_and_from_its_own_menu(self):
        program = self.started()
        for _ in range(3):
            program.do("app.showquickjumpmenu")
        for row, front in ((0, "mainmenu"), (1, "mainmenu"), (2, "mainmenu")):
            self.wait_dialog(program, "quickjump")
            menu = program.control_with("name", "sevJumpList", "quickjump")
            self.desk.call("tap", menu["x"] + 100, menu["y"] + int((row + 0.5) * menu["rowHeight"]))
            self.tap(program, "picOK")
        # The last answer opens the menu again; then the first two act.
        self.wait_dialog(program, "quickjump")
        self.desk.call("key", "Escape")
        wait_for(lambda: program.dialog() is None, "the menu's end")
        self.assertIn(program.front(), ("radio", "gallery"))
        self.assertEqual(program.end(), 0)

    def test_two_prompts_have_two_answers(self):
        program = self.started(ONAPPEND="ask")
        program.do("app.exit")
        program.do("app.exit")
        self.wait_dialog(program, "askforshutdown")
        self.desk.shot("prompt")
        self.tap(program, "picCancel")
        self.wait_dialog(program, "askforshutdown")
        self.tap(program, "imgAction", 0)
        self.assertEqual(program.process.wait(timeout=10), 0)

    def test_boxes_come_in_order_and_a_new_skin_keeps_the_question(self):
        program = self.started(**NIGHT)
        for number in (1, 2, 3):
            program.do(f"app.nonsense{number}")
        for number in (1, 2, 3):
            self.wait_dialog(program, "messagebox")
            self.assertTrue(any(f"nonsense{number}" in text for text in program.texts("messagebox")))
            if number == 2:
                before = [c for c in program.controls("messagebox") if c["name"] == "abutton"]
                program.do("app.night")
                after = [c for c in program.controls("messagebox") if c["name"] == "abutton"]
                self.assertEqual([c["tag"] for c in before], [c["tag"] for c in after])
                self.assertTrue(any("nonsense2" in text for text in program.texts("messagebox")))
                self.desk.shot("messagebox-night")
            program.tap_tag("messagebox.ok")
        wait_for(lambda: program.dialog() is None, "the last box's end")

    def test_a_session_that_ends_inside_the_question_at_the_end_keeps_the_song_and_its_place(self):
        program = self.started(ONAPPEND="reboot")
        program.do("mediaplayer.show")
        program.tap_row("Pink Noise.mp3", times=2)
        wait_for(lambda: program.get("**MEDIAPOSITION**") > "00:02", "two seconds of sound")
        program.do("app.exit")
        self.wait_dialog(program, "messagebox")
        self.assertEqual(program.end(), 0)
        song, place, state = (program.folder / "restore.dat").read_text(encoding="utf-8").splitlines()[:3]
        self.assertTrue(song.endswith("Pink Noise.mp3"))
        self.assertGreaterEqual(int(place), 2)
        self.assertEqual(state, "3")

    def test_ten_thousand_commands_behind_a_box_are_refused_and_cost_nothing(self):
        program = self.started()

        def memory():
            status = Path(f"/proc/{program.process.pid}/status").read_text(encoding="ascii")
            return int(status.partition("VmRSS:")[2].split()[0])

        path = self.desk.call("exec", "printenv", "XDG_RUNTIME_DIR") + "/zvr.sock"
        program.do("app.nonsense")
        self.wait_dialog(program, "messagebox")
        before = memory()
        answers = []
        with socket.socket(socket.AF_UNIX) as client:
            client.connect(path)
            client.settimeout(20)
            reader = client.makefile("r", encoding="utf-8")
            for block in range(100):
                client.sendall(b"".join(b"do app.nonsense%d\n" % (100 * block + i) for i in range(100)))
                answers += [reader.readline() for _ in range(100)]
        refused = [answer for answer in answers if "too many" in answer]
        self.assertGreaterEqual(len(refused), 10_000 - 32)
        if not UNDER:  # a sanitizer keeps what was freed
            self.assertLess(memory(), before + 2048)
        for _ in range(32):
            program.do("messagebox.ok")
        wait_for(lambda: program.dialog() is None, "the last box's end")
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    unittest.main()
