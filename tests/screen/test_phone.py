"""The phone's screen with a phone control program on the other side: calls, the phone book, messages."""

import subprocess
import sys
import time

import lib
from lib import ScreenTest, wait_for

LOOPBACK_UP = """
import fcntl, socket, struct, sys
fcntl.ioctl(socket.socket(), 0x8914, struct.pack("16sh14x", b"lo", 1))
print("up", flush=True)
sys.stdin.read()
"""


def own_network(test):
    """Words before a command that run it in a network where the port is nobody else's; none where there is no such."""
    keeper = subprocess.Popen(["unshare", "-n", sys.executable, "-c", LOOPBACK_UP], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    test.addClassCleanup(keeper.communicate)
    return ["nsenter", "-t", str(keeper.pid), "-n"] if keeper.stdout.readline() else []


class PhoneScreen(ScreenTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.network = own_network(cls)

    def setUp(self):
        super().setUp()
        self.zvr = self.program({"mediaplayer": {"CURRENTFOLDER": lib.STAGE / "media", "VIDEOFOLDER": lib.STAGE / "media" / "Videos"}})
        self.start_peer()
        under, lib.UNDER = lib.UNDER, self.network + lib.UNDER
        try:
            self.zvr.start()
        finally:
            lib.UNDER = under

    def start_peer(self):
        self.peer = self.desk.spawn(*self.network, self.zvr.folder / "phonepeer")
        self.addCleanup(self.peer.wait)
        self.addCleanup(self.peer.kill)
        wait_for(lambda: subprocess.run(self.order_words("asked"), env=self.desk.environment, capture_output=True,
                                        check=False).returncode == 0, "the peer")

    def order_words(self, *words):
        return [lib.ROOT / "tools" / "screen", "exec", self.zvr.folder / "phonepeer", *words]

    def order(self, *words):
        return subprocess.run(self.order_words(*words), env=self.desk.environment, text=True, check=True,
                              capture_output=True, timeout=10).stdout

    def wait_asked(self, element):
        wait_for(lambda: element in self.order("asked"), f"the request {element}")

    def wait_dialog(self, name):
        wait_for(lambda: self.zvr.dialog() == name, f"the dialog {name}")
        time.sleep(0.4)  # a dialog that follows another is deaf for a moment

    def visit(self):
        """Shows the phone; its rows once the book is there."""
        self.zvr.do("phone.show")
        return wait_for(lambda: self.zvr.control_with("name", "phonebooklist", "phone")["texts"], "the phone book")

    def text_of(self, name, form=None):
        return self.zvr.control_with("name", name, form)["text"]

    def test_a_call_comes_over_a_film_and_the_film_plays_on(self):
        self.zvr.do("mediaplayer.show")
        self.zvr.do("mediaplayer.videofolder")
        self.zvr.play(next(row for row in wait_for(self.zvr.rows, "films") if row.startswith("Northern")), "00:01")
        self.zvr.do("mediaplayer.fullscreen")
        self.order("call", "Anna Berg", "+44 7700 900142")
        self.wait_dialog("messagebox")
        self.desk.shot("phone-call-over-film")
        self.assertIn("Anna Berg (+44 7700 900142)", "\n".join(self.zvr.texts("messagebox")))
        place = self.zvr.get("**MEDIAPOSITION**")
        self.zvr.tap_tag("messagebox.ok")
        wait_for(lambda: self.zvr.dialog() is None and self.zvr.front() == "phone", "the phone's screen")
        self.zvr.tap_tag("phone.accept")
        self.wait_asked("<Accept/>")
        self.assertEqual(self.zvr.get("**MEDIAPOSITION**"), place)
        self.zvr.tap_tag("phone.hangup")
        self.wait_asked("<Hangup/>")
        wait_for(lambda: self.zvr.get("**MEDIAPOSITION**") != place, "the film again")
        self.assertEqual(self.zvr.end(), 0)

    def test_the_book_is_dialled_and_a_peer_that_was_killed_is_found_again(self):
        rows = self.visit()
        self.zvr.tap_list("phonebooklist", "phone", self.zvr.control_with("name", "phonebooklist")["texts"][1])
        number = wait_for(lambda: self.text_of("numberbox"), "the number")
        self.desk.shot("phone-book")
        self.zvr.tap_tag("phone.dial")
        self.wait_asked(f'<Dial number="{number}"/>')
        self.peer.kill()
        wait_for(lambda: self.zvr.get("**PHONESTATUS**") == "Disconnected", "the end of the connection")
        self.assertEqual(self.zvr.get("**PHONESIGNAL**"), "---")
        self.desk.shot("phone-disconnected")
        self.start_peer()
        self.zvr.do("mainmenu.show")
        self.assertEqual(self.visit(), rows)
        wait_for(lambda: self.zvr.get("**PHONESTATUS**") == "Connected" and "%" in self.zvr.get("**PHONESIGNAL**"),
                 "the connection")
