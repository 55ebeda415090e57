"""Finding things and looking at them: the search over the index, a film disc."""

import os
import shutil
import subprocess

from lib import ROOT, ScreenTest, wait_for


class Search(ScreenTest):
    def test_an_index_is_not_replaced_where_there_is_nothing_to_look_at(self):
        folder = self.program().folder
        latin = os.fsencode(folder / "media") + b"/caf\xe9"
        os.mkdir(latin)

        def written(base, code):
            done = subprocess.run([folder / "indexer", "347", base], stderr=subprocess.DEVNULL)
            self.assertEqual(done.returncode, code)
            return (folder / "zvrmedia.dat").read_bytes()

        before = written(f"{folder}/media", 0)
        self.assertEqual(written(f"{folder}//media/.", 0), before)
        self.assertEqual(written(latin, 2), before)
        self.assertEqual(written("nowhere", 2), before)

    def test_a_new_file_is_found_once_the_index_is_made_and_a_touch_plays_it(self):
        program = self.program()
        program.write_settings({"mediasearch": {"INDEXBASEFOLDER": program.folder / "media"}})
        index = program.folder / "zvrmedia.dat"
        before = index.stat().st_mtime_ns
        song = next(program.folder.glob("media/*/02 Wet Asphalt.mp3"))
        shutil.copyfile(song, program.folder / "media/New Harbour.mp3")
        program.start()
        program.do("mediasearch.show")
        program.tap_tag("mediasearch.makeindex")
        wait_for(lambda: index.stat().st_mtime_ns > before, "the new index")
        program.do("mainmenu.show")
        program.do("mediasearch.show")
        for letter in "ew har":
            program.tap_tag(f"mediasearch.text.{letter}")
        wait_for(lambda: program.control_with("name", "resultlist")["texts"] == ["New Harbour.mp3"], "the song")
        self.desk.shot("search-found")
        program.tap_tag("mediasearch.playnow")
        wait_for(lambda: "Wet Asphalt" in program.get("**MEDIATITLE**") * 3, "its title")


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
        program.write_settings({"mediaplayer": {"CURRENTFOLDER": media}, "dvdplayer": {"DRIVELETTER": "d:"}})
        program.start()
        program.play("Pink Noise.mp3")
        program.do("mediaplayer.loadaudiocd")
        wait_for(lambda: program.front() == "dvdplayer", "the film's screen")
        area = program.control_with("name", "dvd")
        wait_for(lambda: self.colour(area) == "grey", "the menu", 20)
        self.desk.call("tap", area["x"] + area["width"] * 2 // 3, area["y"] + area["height"] // 3)
        wait_for(lambda: self.colour(area) == "another", "the title of the button at the right", 20)
        program.tap_tag("dvdplayer.pause")
        program.tap_tag("dvdplayer.menu")
        wait_for(lambda: self.colour(area) == "grey", "the menu, out of the pause", 20)
        program.tap("name", "dvdclickcatcher")
        wait_for(lambda: program.control_with("name", "dvd")["width"] == 800, "the whole screen")
        program.tap("name", "dvdclickcatcher")
        wait_for(lambda: program.control_with("name", "dvd")["width"] == area["width"], "the keys around it")
        program.tap_tag("dvdplayer.stop")
        wait_for(lambda: self.colour(area) != "grey", "the end of the film")
        program.tap_tag("mediaplayer.show")
        self.assertGreaterEqual(program.get("**MEDIAPOSITION**"), "00:02")
        self.assertLess(self.desk.level(), -60)
