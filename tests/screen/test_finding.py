"""Finding things and looking at them: the search over the index, the pictures, a film disc."""

import struct
import subprocess
import time
import unittest

from lib import ROOT, ScreenTest, wait_for


class Search(ScreenTest):
    def open(self):
        program = self.program()
        program.write_settings({"general": {"SINGLECLICKLISTSELECT": 0},
                                "mediasearch": {"INDEXBASEFOLDER": program.folder / "media"}})
        program.start()
        program.tap_tag("mediaplayer.show")
        wait_for(lambda: program.front() == "mediaplayer", "the player in front")
        program.tap_tag("mediasearch.show")
        wait_for(lambda: program.front() == "mediasearch", "the search in front")
        return program

    def type(self, program, text):
        for letter in text:
            program.tap_tag(f"mediasearch.text.{letter}")

    def results(self, program):
        return program.control_with("name", "resultlist")["texts"]

    def test_two_halves_of_words_find_the_song_and_a_touch_plays_it(self):
        program = self.open()
        wait_for(lambda: program.get("**MEDIASEARCHRESULT**").startswith("Ready"), "the staged index")
        self.desk.shot("search-ready")
        self.type(program, "sph wet")
        wait_for(lambda: self.results(program) == ["02 Wet Asphalt.mp3"], "the song")
        self.desk.shot("search-found")
        program.tap_tag("mediasearch.playnow")
        wait_for(lambda: "Wet Asphalt" in program.get("**MEDIATITLE**") * 3, "its title")
        self.assertEqual(program.front(), "mediasearch")
        program.tap_tag("mediasearch.jump2folder")
        wait_for(lambda: "02 Wet Asphalt.mp3" in program.rows(), "its folder")

    def test_the_index_is_made_by_touch_and_read_at_the_next_visit(self):
        program = self.open()
        (program.folder / "media/Videos/New Harbour.avi").touch()
        before = (program.folder / "zvrmedia.dat").stat().st_mtime_ns
        program.tap_tag("mediasearch.makeindex")
        wait_for(lambda: (program.folder / "zvrmedia.dat").stat().st_mtime_ns > before, "the new index")
        program.do("mainmenu.show")
        program.do("mediasearch.show")
        self.type(program, "new har")
        wait_for(lambda: self.results(program) == ["New Harbour.avi"], "the new file")

    def test_a_broken_index_is_told(self):
        program = self.open()
        for content, text in ((b"", "empty"), (b"ZVRIDX0990\r\n", "old format"), (b"ZVRIDX100abc", "incomplete")):
            time.sleep(0.02)
            (program.folder / "zvrmedia.dat").write_bytes(content)
            program.do("mainmenu.show")
            program.do("mediasearch.show")
            wait_for(lambda: program.dialog() == "messagebox", "the message")
            self.assertTrue(any(text in shown for shown in program.texts()), program.texts())
            self.desk.shot("search-" + text.replace(" ", "-"))
            program.tap_tag("messagebox.ok")
            wait_for(lambda: program.dialog() is None, "the message to close")
        self.assertTrue(program.get("**MEDIASEARCHRESULT**").startswith("No index"))


def photo(path, width, height, color, orientation=1):
    """A JPEG of one colour with a white stripe on top, as a camera writes it that was turned."""
    subprocess.run(["convert", "-size", f"{width}x{height}", f"xc:{color}", "-fill", "white", "-draw",
                    f"rectangle 0,0 {width},{height // 10}", path], check=True)
    exif = b"Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0" + struct.pack("<HHI", orientation, 0, 0)
    plain = path.read_bytes()
    path.write_bytes(plain[:2] + b"\xff\xe1" + struct.pack(">H", len(exif) + 2) + exif + plain[2:])


class Gallery(ScreenTest):
    def test_photos_are_turned_fitted_and_shown_on_the_whole_screen(self):
        program = self.program()
        pictures = program.folder / "photos"
        pictures.mkdir()
        photo(pictures / "a.jpg", 1600, 1200, "#203060")
        photo(pictures / "b.jpg", 1600, 1200, "#206030", 6)
        (pictures / "c.jpg").write_bytes((pictures / "a.jpg").read_bytes()[:100])
        photo(pictures / "d.jpg", 40, 30, "#602030")
        program.write_settings({"general": {"SINGLECLICKLISTSELECT": 1, "POSTSORTDIRECTORYLISTINGS": 1},
                                "gallery": {"IMAGEFOLDER": pictures, "SLIDESHOWWAITSECS": 1}})
        program.start()
        program.tap_tag("gallery.show")
        wait_for(lambda: program.front() == "gallery", "the gallery in front")

        def choose(name):
            program.tap_list("imglist", "gallery", name)

        def place():
            shown = [c for c in program.controls("gallery") if c["name"] == "imgImage"]
            return (shown[0]["width"], shown[0]["height"]) if shown else (1, 100)

        choose("a.jpg")
        wait_for(lambda: place()[0] * 3 == place()[1] * 4 or abs(place()[0] / place()[1] - 4 / 3) < 0.01, "a landscape")
        choose("b.jpg")
        wait_for(lambda: abs(place()[1] / place()[0] - 4 / 3) < 0.01, "a portrait")
        self.desk.shot("gallery-portrait")
        choose("c.jpg")  # broken: the picture before stays
        choose("d.jpg")
        wait_for(lambda: place() == (40, 30), "a small one in its own size")
        area = program.control_with("name", "picImage")
        x, y = area["x"] + area["width"] // 2, area["y"] + area["height"] // 2
        self.desk.call("tap", x, y)
        wait_for(lambda: program.control_with("name", "picImage")["x"] == 0, "the whole screen")
        self.desk.call("drag", 300, 300, 600, 310)
        wait_for(lambda: place()[1] == 600, "the picture before, past the broken one")
        self.desk.shot("gallery-whole-screen")
        self.desk.call("tap", 400, 300)
        wait_for(lambda: program.control_with("name", "picImage")["x"] > 0, "the list beside it")
        program.tap_tag("gallery.slideshowon")
        wait_for(lambda: abs(place()[0] / place()[1] - 4 / 3) < 0.01 and place()[0] > 40, "the show to go on")


class Film(ScreenTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.disc = ROOT / "build" / "test-dvd"
        subprocess.run([ROOT / "tests/contract/make-dvd.sh", cls.disc], check=True)

    def colour(self, area):
        """What the middle of the film's lower edge shows: away from buttons and marks."""
        self.desk.shot("film")
        x, y = area["x"] + area["width"] // 2, area["y"] + area["height"] * 9 // 10
        said = subprocess.run(["convert", ROOT / "build/screenshots/film.png", "-format", f"%[fx:p{{{x},{y}}}.r] "
                               f"%[fx:p{{{x},{y}}}.g] %[fx:p{{{x},{y}}}.b]", "info:"], check=True, capture_output=True,
                              text=True).stdout
        red, green, blue = map(float, said.split())
        return "grey" if min(red, green, blue) > .3 else "another"

    def test_a_disc_plays_from_its_menu_by_touch_and_the_song_waits(self):
        program = self.program()
        (program.folder / "devices.ini").write_text(f"[drives]\nd={self.disc}\n")
        media = program.folder / "media/Test Signals"
        program.write_settings({"general": {"SINGLECLICKLISTSELECT": 1}, "mediaplayer": {"CURRENTFOLDER": media},
                                "dvdplayer": {"DRIVELETTER": "d:"}})
        program.start()
        program.tap_tag("mediaplayer.show")
        wait_for(lambda: "Pink Noise.mp3" in program.rows(), "the song")
        program.tap_row("Pink Noise.mp3")
        wait_for(lambda: program.get("**MEDIAPOSITION**") >= "00:02", "some of the song", 20)
        program.do("mediaplayer.loadaudiocd")
        wait_for(lambda: program.front() == "dvdplayer", "the film's screen")
        area = program.control_with("name", "dvd")
        wait_for(lambda: self.colour(area) == "grey", "the menu", 20)
        self.desk.call("tap", area["x"] + area["width"] * 2 // 3, area["y"] + area["height"] // 3)
        wait_for(lambda: self.colour(area) == "another", "the title of the button at the right", 20)
        program.tap_tag("dvdplayer.pause")
        program.tap_tag("dvdplayer.menu")
        wait_for(lambda: self.colour(area) == "grey", "the menu, out of the pause", 20)
        self.desk.call("tap", area["x"] + area["width"] // 3, area["y"] + area["height"] // 3)
        wait_for(lambda: self.colour(area) == "another", "the first title", 20)
        program.tap_tag("dvdplayer.menu")
        wait_for(lambda: self.colour(area) == "grey", "the menu again", 20)
        mark = program.control_with("name", "dvdclickcatcher")
        self.desk.call("tap", mark["x"] + mark["width"] // 2, mark["y"] + mark["height"] // 2)
        wait_for(lambda: program.control_with("name", "dvd")["width"] == 800, "the whole screen")
        mark = program.control_with("name", "dvdclickcatcher")
        self.desk.call("tap", mark["x"] + mark["width"] // 2, mark["y"] + mark["height"] // 2)
        wait_for(lambda: program.control_with("name", "dvd")["width"] == area["width"], "the keys around it")
        program.tap_tag("dvdplayer.stop")
        wait_for(lambda: self.colour(area) != "grey", "the end of the film")
        program.tap_tag("mediaplayer.show")
        self.assertGreaterEqual(program.get("**MEDIAPOSITION**"), "00:02")
        self.assertLess(self.desk.level(), -60)


if __name__ == "__main__":
    unittest.main()
