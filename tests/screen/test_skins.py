"""The loop of somebody who draws a skin: change a file, look."""

import subprocess

from lib import ScreenTest, wait_for

SKIN = "Dark&Silver 800x600"


class Skins(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program({}).start()
        self.file = self.zvr.folder / "skins" / SKIN / "skindata.xml"

    def home(self):
        return self.zvr.control_with("tag", "mainmenu.show", "radio")["x"]

    def test_watching_shows_each_save_and_leaves_out_the_broken_ones(self):
        self.zvr.do("radio.show")
        before = self.home()
        watch = self.desk.spawn(self.zvr.folder / "skincheck", "--watch", self.file.parent, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(watch.communicate)
        self.addCleanup(watch.kill)
        good = self.file.read_text(encoding="utf-8")
        screens, radio, rest = good.partition("<radio>")
        self.file.write_text(screens + radio + rest.replace("<posx>8</posx>", "<posx>12</posx>", 1), encoding="utf-8")
        wait_for(lambda: self.home() - before == 4, "the saved skin")
        self.file.write_text(good + "<", encoding="utf-8")
        wait_for(lambda: "can't be read" in watch.stdout.readline(), "its fault")
        self.file.write_text(good, encoding="utf-8")
        wait_for(lambda: self.home() == before, "the mended one")

    def test_a_new_skin_is_clean_and_each_screen_of_it_painted_with_its_keys(self):
        check = self.zvr.folder / "skincheck"
        new = self.zvr.folder / "skins" / "New"
        subprocess.run([check, "--new", new, "800x480"], check=True)
        self.assertEqual(subprocess.run([check, "--new", new, "800x480"], stderr=subprocess.DEVNULL).returncode, 3)
        pictures = {}
        for wishes in ([], ["--outlines"], ["--pressed"], ["--longest"], ["--language", "de"]):
            out = self.zvr.folder / "out" / "-".join(["all", *wishes])
            done = subprocess.run([check, "--render", out, *wishes, new], capture_output=True, text=True)
            self.assertEqual((done.returncode, done.stdout), (0, ""))
            pictures[tuple(wishes)] = {file.name: file.read_bytes() for file in out.glob("*.png")}
            self.assertEqual(len(pictures[tuple(wishes)]), 14)
        plain = pictures[()]
        for wishes, changed in (("--outlines",), 14), (("--pressed",), 14), (("--longest",), 7):
            same = [name for name, picture in pictures[wishes].items() if picture == plain[name]]
            self.assertEqual(len(same), 14 - changed, (wishes, same))
