"""How wide words are, read from the font files: advances without kerning, so never less than on the screen."""

import struct
import subprocess


class FontFile:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.data = file.read()
        count = self.word(4)
        self.tables = {self.data[at:at + 4].decode(): self.long(at + 8) for at in range(12, 12 + 16 * count, 16)}
        self.units = self.word(self.tables["head"] + 18)
        self.advances = self.word(self.tables["hhea"] + 34)
        self.glyphs = self.character_map()

    def word(self, at):
        return struct.unpack_from(">H", self.data, at)[0]

    def long(self, at):
        return struct.unpack_from(">I", self.data, at)[0]

    def character_map(self):
        """Of the table for the basic plane (format 4)."""
        table = self.tables["cmap"]
        for i in range(self.word(table + 2)):
            start = table + self.long(table + 4 + 8 * i + 4)
            if self.word(start) == 4:
                return self.segments(start)
        raise ValueError("no character map that is known here")

    def segments(self, start):
        double = self.word(start + 6)
        ends, starts = start + 14, start + 16 + double
        deltas, offsets = starts + double, starts + 2 * double
        glyphs = {}
        for at in range(0, double, 2):
            offset = self.word(offsets + at)
            for code in range(self.word(starts + at), min(self.word(ends + at), 0xFFFE) + 1):
                if offset:
                    glyph = self.word(offsets + at + offset + 2 * (code - self.word(starts + at)))
                else:
                    glyph = code
                glyphs[code] = (glyph + self.word(deltas + at)) & 0xFFFF if glyph else 0
        return glyphs

    def width(self, words, size):
        total = 0
        for character in words:
            glyph = min(self.glyphs.get(ord(character), 0), self.advances - 1)
            total += self.word(self.tables["hmtx"] + 4 * glyph)
        return total * size / self.units


class Fonts:
    """A family with its weights, as the system finds them."""

    def __init__(self, family):
        self.family, self.files = family, {}

    def width(self, words, size, weight):
        """Pixels. The weight is one of CSS: 400 regular."""
        if weight not in self.files:
            cut = {300: 50, 400: 80, 500: 100, 700: 200}[weight]
            path = subprocess.run(["fc-match", "-f", "%{file}", f"{self.family}:weight={cut}:slant=0"],
                                  capture_output=True, text=True, check=True).stdout
            self.files[weight] = FontFile(path)
        return self.files[weight].width(words, size)
