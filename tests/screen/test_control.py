"""The control socket of a running program, and its client."""

import os
import socket
import stat
import subprocess
import unittest

from lib import ScreenTest, wait_for


class Control(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program({}).start()
        runtime = self.desk.call("exec", "printenv", "XDG_RUNTIME_DIR")
        self.path = f"{runtime}/zvr.sock"

    def connect(self):
        client = socket.socket(socket.AF_UNIX)
        client.settimeout(5)
        client.connect(self.path)
        self.addCleanup(client.close)
        return client

    def test_client_tells_what_went_wrong(self):
        for words, code in ((["get", "**NONSENSE**"], 1), (["dance"], 2), (["do"], 2), (["state", "now"], 2)):
            done = self.zvr.control(*words)
            self.assertEqual((done.returncode, done.stdout), (code, ""), words)
            self.assertTrue(done.stderr, words)
        self.assertEqual(self.zvr.end(), 0)
        self.assertEqual(self.zvr.control("state").returncode, 3)

    def test_bad_input_gets_an_error_and_does_no_harm(self):
        self.assertEqual(stat.S_IMODE(os.stat(self.path).st_mode), 0o600)
        client = self.connect()
        lines = client.makefile("rwb")
        for request in (b"x" * 100000, b"", b"get", b"do \x07", b"\xff\xfe\x00", b"state state"):
            lines.write(request + b"\n")
            lines.flush()
            self.assertTrue(lines.readline().startswith(b'{"error":'), request[:20])
        lines.write(b"get **UNREADSMS**\n")
        lines.flush()
        self.assertEqual(lines.readline(), b'{"ok":true,"values":{"**UNREADSMS**":"0"}}\n')

    def test_clients_that_hang_or_go_disturb_nobody(self):
        half = self.connect()
        half.sendall(b"do app.exit")  # never ended
        deaf = self.connect()
        for _ in range(200):
            deaf.sendall(b"state\n")
            deaf.setblocking(True)
        gone = self.connect()
        gone.sendall(b"state\n")
        gone.close()
        self.assertEqual(self.zvr.front(), "mainmenu")

    def test_watch_tells_each_change(self):
        watch = self.desk.spawn(self.zvr.folder / "zvrctl", "watch", "**WAVEVOLUME**", stdout=subprocess.PIPE, text=True)
        self.addCleanup(watch.stdout.close)
        self.addCleanup(watch.wait)
        self.addCleanup(watch.kill)
        self.assertEqual(watch.stdout.readline(), "100%\n")
        self.zvr.do("app.volumedown")
        self.assertEqual(watch.stdout.readline(), "90%\n")
        self.zvr.do("app.volumemute")
        self.assertEqual(watch.stdout.readline(), "Mute\n")

    def test_every_button_of_every_screen_lies_on_the_screen(self):
        state = self.zvr.state()
        self.assertIn("mediaplayer", state["forms"])
        for name, form in state["forms"].items():
            buttons = [c for c in form["controls"] if c["name"] == "abutton" and c["visible"]]
            for button in buttons:
                inside = (form["x"] <= button["x"] and button["x"] + button["width"] <= form["x"] + form["width"] and
                          form["y"] <= button["y"] and button["y"] + button["height"] <= form["y"] + form["height"])
                self.assertTrue(inside, f"{name}: {button}")
        self.assertTrue(wait_for(lambda: self.zvr.front() == "mainmenu", "the main menu"))


if __name__ == "__main__":
    unittest.main()
