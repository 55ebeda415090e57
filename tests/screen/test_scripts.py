"""Names in scripts that the skins' typeface lacks: each shows glyphs of its own and not the box of a missing one."""

import subprocess
import time
import wave

from lib import ScreenTest, wait_for

# Two names a script, of as many characters and with none in common: as boxes they would look the same.
NAMES = {"Japanese": ("ひらがな日本", "カタカナ音楽"), "Korean": ("한국노래", "음악소리"),
         "Chinese": ("简体汉语", "繁體歌曲"), "Thai": ("กขคงจ", "ชซดตน"), "Emoji": ("🎵🚗🥰", "🎸🌙🔥")}
INK = 90    # darker is ground, and the other ground of every second row


class Scripts(ScreenTest):
    def setUp(self):
        super().setUp()
        self.zvr = self.program()
        home = self.zvr.folder / "scripts"
        for script, names in NAMES.items():
            (home / script).mkdir(parents=True)
            for name in names:
                with wave.open(str(home / script / f"{name}.wav"), "wb") as file:
                    file.setparams((1, 2, 8000, 8000, "NONE", ""))
                    file.writeframes(bytes(16000))
        self.zvr.write_settings({"general": {"SINGLECLICKLISTSELECT": 1, "POSTSORTDIRECTORYLISTINGS": 1},
                                 "mediaplayer": {"CURRENTFOLDER": home}})
        self.zvr.start().do("mediaplayer.show")

    def open_folder(self, row, expected):
        self.zvr.do("mediaplayer.scrolltop" if row == ".." else "mediaplayer.scrollbottom")
        wait_for(lambda: row in self.zvr.rows(), f"the row {row}")
        time.sleep(0.4)    # new rows take no touch at once
        self.zvr.tap_row(row)
        wait_for(lambda: expected in self.zvr.rows(), f"the row {expected}")

    def ink(self, picture, name):
        """Where the glyphs of a name are, a letter for each pixel of its row, and how many of them are colourful."""
        grid = self.zvr.control_with("name", "medialist", "mediaplayer")
        row, skip = grid["rowHeight"], 48    # what stands before the name
        top = grid["y"] + (grid["texts"].index(f"{name}.wav")) * row
        area = f"{grid['width'] - skip - 8}x{row - 8}+{grid['x'] + skip}+{top + 4}"
        data = subprocess.run(["convert", picture, "-crop", area, "-depth", "8", "rgb:-"], check=True,
                              capture_output=True).stdout
        pixels = [data[i:i + 3] for i in range(0, len(data), 3)]
        return ("".join("x" if max(pixel) > INK else "." for pixel in pixels),
                sum(max(pixel) - min(pixel) > INK for pixel in pixels))

    def test_each_script_has_its_glyphs(self):
        for script, names in NAMES.items():
            with self.subTest(script):
                self.open_folder(script, f"{names[0]}.wav")
                time.sleep(0.2)
                picture = self.desk.shot(f"script-{script}")
                (first, color), (second, _) = (self.ink(picture, name) for name in names)
                self.open_folder("..", script)
                differing = sum(a != b for a, b in zip(first, second))
                self.assertGreater(differing, 200, "the names look alike")
                self.assertEqual(color > 200, script == "Emoji", f"{color} colourful pixels")
