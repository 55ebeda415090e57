"""A skin while it is being described: its forms, and the pictures that they name. How things look stands in sheet.py,
where they stand in forms/."""

import string
from typing import NamedTuple

from captions import captions
from form import Form
from sheet import Face, Sheet
from skindata import document
from tokens import SIZES, THEMES, skin_name


class Picture(NamedTuple):
    svg: str
    width: int
    height: int


class Skin:
    """Of one screen size, one theme and one language."""

    def __init__(self, size, theme_name, language):
        self.size, self.theme_name, self.language = size, theme_name, language
        self.captions = captions(language)
        self.theme = THEMES[theme_name]
        self.measures = SIZES[size]
        self.name = skin_name(size, theme_name)
        self.pictures = {}    # file name without ".png" -> Picture
        self.captions_on_keys = {}    # picture -> (key's width, caption, points, weight)
        self.forms = []

    def sheet(self, width, height, origin=(0, 0)):
        return Sheet(width, height, self.theme, self.measures["radius"], origin)

    def picture(self, name, sheet):
        """Adds a picture; the same name must mean the same drawing."""
        picture = Picture(sheet.svg(), sheet.width, sheet.height)
        if self.pictures.setdefault(name, picture) != picture:
            raise ValueError(f"{self.name}: two different pictures are called {name}")
        return f"images/{name}.png"

    def key_pictures(self, w, h, face, caption):
        """Both looks of a key. `caption` names its words in any language."""
        parts = (face.icon, plain(caption), "lit" if face.lit else "", face.kind, f"{w}x{h}")
        name = "-".join(part for part in parts if part)
        self.captions_on_keys[name] = (w, face.caption, face.points, face.weight)
        for suffix, pressed in (("", False), ("-down", True)):
            sheet = self.sheet(w, h)
            sheet.key(w, h, face, pressed)
            self.picture(name + suffix, sheet)
        return name

    def keyboard_pictures(self):
        """Bodies of keys, which the on-screen keyboard stretches to their widths."""
        height = self.measures["keyboard_key"]
        width = 2 * height
        pictures = {}
        for name, kind, pressed in (("key", "key", False), ("quiet", "flat", False), ("enter", "prime", False),
                                    ("pressed", "key", True)):
            sheet = self.sheet(width, height)
            sheet.plate(width, height, Face(kind, radius=8), pressed)
            pictures[name] = Picture(sheet.svg(), width, height)
        return pictures

    def form(self, name, width=None, height=None):
        form = Form(self, name, width or self.size[0], height or self.size[1])
        self.forms.append(form)
        return form

    def xml(self):
        """Makes the pictures of the backgrounds, too."""
        page = self.sheet(*self.size)
        page.page(*self.size)
        general = {"width": self.size[0], "height": self.size[1], "background-color": self.theme["bg_bot"],
                   "background-image": self.picture("page", page)}
        return document(self.name, {"general": general, **{form.name: form.tree() for form in self.forms}})


def plain(caption):
    """Letters for a file name: some are not in every file system's alphabet."""
    safe = string.ascii_letters + string.digits
    return "".join(c.lower() if c in safe else f"u{ord(c):x}" for c in caption)
