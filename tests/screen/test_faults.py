"""What goes wrong at the start, and what the driver sees of it."""

import time

from lib import ScreenTest, wait_for


class Faults(ScreenTest):
    def test_second_instance_is_refused_and_the_first_lives_on(self):
        first = self.program({}).start()
        second = self.program({})
        second.launch()

        def in_front():
            stack = self.desk.call("exec", "xprop", "-root", "_NET_CLIENT_LIST_STACKING").split()[-1]
            return self.desk.call("exec", "xprop", "-id", stack, "_NET_WM_PID", "_NET_WM_WINDOW_TYPE", check=False)
        wait_for(lambda: f"= {second.process.pid}\n" in (said := in_front()) and "TYPE_DIALOG" not in said,
                 "the second one's splash before the first one's window", 5)
        self.assertNotEqual(second.expect_fatal_box("second-instance"), 0)
        self.assertEqual(first.front(), "mainmenu")
        self.assertIsNone(first.process.poll())

    def test_sound_that_comes_late_closes_its_message_and_comes_again_as_it_was(self):
        def master():
            said = self.desk.call("exec", "pactl", "get-sink-volume", "null", check=False)
            return said.split("%")[0].split()[-1] if "%" in said else ""
        self.addCleanup(self.desk.call, "sound")
        self.desk.call("quiet")
        program = self.program({"general": {}, "mediaplayer": {"STARTUPVOLUME": 40, "VOLSTEPPING": 10}})
        program.launch()
        wait_for(program.boxes, "the message that there is no mixer")
        self.desk.call("sound")
        wait_for(program.is_up, "the first screen, without a touch", 20)
        wait_for(lambda: master() == "40", "the start volume")
        program.do("app.volumeup")
        wait_for(lambda: master() == "50", "the volume key")
        self.desk.call("quiet")
        time.sleep(1)
        self.desk.call("sound")  # which begins at its loudest
        wait_for(lambda: master() == "50", "the volume as it was", 15)

    def test_a_machine_without_the_media_engine_is_told_so(self):
        program = self.program({})
        (program.folder / "libvlc.so.5").touch()  # found first, and no library
        self.desk.environment["LD_LIBRARY_PATH"] = str(program.folder)
        self.addCleanup(self.desk.environment.pop, "LD_LIBRARY_PATH")
        program.launch()
        self.assertNotEqual(program.expect_fatal_box("no-media-engine"), 0)
        self.assertIn("the media engine can't be loaded", program.said())

    def test_window_switch_keeps_the_frame(self):
        program = self.program({}).start("-WINDOW")
        window = self.desk.call("exec", "xdotool", "search", "--onlyvisible", "--name", "^zVR$").split()[0]
        said = self.desk.call("exec", "xprop", "-id", window, "_NET_FRAME_EXTENTS", "_NET_WM_STATE")
        self.assertNotIn("FULLSCREEN", said)
        self.assertNotIn("= 0, 0, 0, 0", said)
        self.desk.shot("window")

    def test_a_bad_skin_is_told_and_ends_the_program(self):
        program = self.program({})
        skin = next((program.folder / "skins").glob("Dark&Silver 800x600/skindata.xml"))
        good = skin.read_text(encoding="utf-8")
        skin.write_text(good.replace("<medialist>", "<medialist><posx>-4</posx>", 1), encoding="utf-8")
        program.launch()
        self.assertNotEqual(program.expect_fatal_box("bad-skin"), 0)

    def test_zvrctl_tells_what_went_wrong(self):
        program = self.program({}).start()
        for words, code in ((["get", "**NONSENSE**"], 1), (["dance"], 2), (["do"], 2), (["state", "now"], 2)):
            done = program.control(*words)
            self.assertEqual((done.returncode, done.stdout), (code, ""), words)
            self.assertTrue(done.stderr, words)
        self.assertEqual(program.end(), 0)
        self.assertEqual(program.control("state").returncode, 3)
