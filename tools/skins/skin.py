"""A skin while it is being described: forms with their buttons, labels and special elements, and the pictures that
they name. Knows the tree of skindata.xml; how things look stands in sheet.py, where they stand in forms/."""

import math
from typing import NamedTuple
from xml.sax.saxutils import escape

from layout import Box
from sheet import Sheet
from tokens import CAP_MIDDLE, CAPITAL, FACES, LINE, SIZES, THEMES, px, skin_name

APP_VERSION = "1.2"
WEIGHTS = {name: weight for name, (_, _, weight) in FACES.items()}


class Face(NamedTuple):
    """What is painted on a key. Kinds: key (raised), prime (raised, silver rim), flat, call, hang, bar (no surface)."""
    kind: str = "key"
    icon: str = ""
    size: float = 0       # of the icon
    caption: str = ""
    points: float = 15    # of the caption
    weight: int = 500
    lit: bool = False     # a switched-on half of a toggle pair


class Picture(NamedTuple):
    svg: str
    width: int
    height: int


class Button(NamedTuple):
    name: str
    box: Box
    command: str
    picture: str          # without "-down" and ".png"
    pair: str             # buttons of one pair share a place on purpose


class Label(NamedTuple):
    name: str
    box: Box
    text: str
    points: float
    color: str
    face: str
    align: str
    characters: int       # of a running title, else 0
    ground: tuple         # colours that lie behind it


class Skin:
    def __init__(self, size, theme_name, captions):
        self.size, self.theme_name, self.captions = size, theme_name, captions
        self.theme = THEMES[theme_name]
        self.measures = SIZES[size]
        self.name = skin_name(size, theme_name)
        self.pictures = {}    # file name without ".png" -> Picture
        self.captions_on_keys = {}    # picture -> (key's width, caption, points)
        self.forms = []

    def sheet(self, width, height, origin=(0, 0)):
        return Sheet(width, height, self.theme, self.measures["radius"], origin)

    def picture(self, name, sheet):
        """Adds a picture; the same name must mean the same drawing."""
        picture = Picture(sheet.svg(), sheet.width, sheet.height)
        if self.pictures.setdefault(name, picture) != picture:
            raise ValueError(f"{self.name}: two different pictures are called {name}")
        return f"images/{name}.png"

    def key_pictures(self, w, h, face):
        parts = (face.icon or face.caption.lower(), "lit" if face.lit else "", face.kind, f"{w}x{h}",
                 f"{round(face.points)}" if face.icon and face.caption else "")
        name = "-".join(part for part in parts if part)
        self.captions_on_keys[name] = (w, face.caption, face.points)
        for suffix, pressed in (("", False), ("-down", True)):
            sheet = self.sheet(w, h)
            sheet.key(w, h, face, pressed)
            self.picture(name + suffix, sheet)
        return name

    def form(self, name, width=None, height=None):
        form = Form(self, name, width or self.size[0], height or self.size[1])
        self.forms.append(form)
        return form

    def xml(self):
        general = self.sheet(*self.size)
        general.page(*self.size)
        lines = ['<?xml version="1.0" encoding="utf-8"?>', "<skin>", "  <about>",
                 f"    <title>{escape(self.name)}</title>", "    <author>The zVR project</author>",
                 f"    <for-app-version>{APP_VERSION}</for-app-version>",
                 "  </about>"]
        lines += element("general", {"width": self.size[0], "height": self.size[1],
                                     "background-color": self.theme["bg_bot"],
                                     "background-image": self.picture("page", general)}, 1)
        for form in self.forms:
            lines += element(form.name, form.tree(), 1)
        return "\n".join([*lines, "</skin>"]) + "\n"


class Form:
    """One screen. What is drawn on `sheet` becomes the background picture."""

    def __init__(self, skin, name, width, height):
        self.skin, self.name, self.width, self.height = skin, name, width, height
        self.measures, self.theme, self.captions = skin.measures, skin.theme, skin.captions
        self.scale = self.measures["scale"]
        self.sheet = skin.sheet(width, height)
        self.buttons, self.labels = [], []
        self.special = {}     # the form's further elements: a tree of texts

    def __getitem__(self, measure):
        return self.measures[measure]

    def content(self):
        """What the bar leaves free, less the margins."""
        m = self["margin"]
        return Box(m, m, self.width - 2 * m, self.height - self["bar"] - 2 * m)

    # ---- keys

    def key(self, box, command, icon="", size=34, caption="", kind="key", points=14, face="medium", lit=False, pair="",
            name=""):
        """`size` and `points` are those of the 800 wide screens."""
        look = Face(kind, icon, round(size * self.scale, 1), self.captions.get(caption, caption), points * self.scale,
                    WEIGHTS[face], lit)
        name = name or command.removeprefix(self.name + ".").removeprefix("app.").replace(".", "-")
        self.buttons.append(Button(name, box, command, self.skin.key_pictures(box.w, box.h, look), pair))

    def pair(self, box, front, back, size=34, kind="flat"):
        """A toggle: two keys on one spot, each a (command, icon, lit). The one in front comes later."""
        for command, icon, lit in (back, front):
            self.key(box, command, icon, size, kind=kind, lit=lit, pair=front[0])

    # ---- texts

    def label(self, name, text, x, middle, width, points, color="text", face="regular", align="left", characters=0,
              ground=("well",)):
        """One line whose capitals are centred on `middle`."""
        size = px(points * self.scale)
        box = Box(round(x), round(middle - CAP_MIDDLE * size), round(width), math.ceil(LINE * size) + 1)
        self.place_label(name, text, box, points, color, face, align, characters, ground)

    def place_label(self, name, text, box, points, color="text", face="regular", align="left", characters=0,
                    ground=("well",)):
        points = round(points * self.scale, 1)
        self.labels.append(Label(name, box, text, points, color, face, align, characters, ground))

    def words(self, key, x, middle, points, color="dim", anchor="start", face="medium"):
        """Fixed words, painted into the background."""
        size = px(points * self.scale)
        self.sheet.text(x, middle + size * CAPITAL / 2, self.captions[key], points * self.scale, self.theme[color],
                        WEIGHTS[face], anchor)

    def mark(self, icon, x, middle, size, color="dim"):
        self.sheet.icon(icon, x, middle, size * self.scale, self.theme[color])

    # ---- special elements

    def set_size(self):
        self.special.update(width=self.width, height=self.height)

    def set(self, path, values):
        """`path` such as "imgdisplay/preview"; `values` a tree, or one text for the path itself."""
        *above, last = path.split("/")
        if not isinstance(values, dict):
            self.special[last] = values
            return
        branch = self.special
        for step in path.split("/"):
            branch = branch.setdefault(step, {})
        branch.update(values)

    def grid(self, name, box, row, points=18):
        t = self.theme
        self.set(name, {**place(box), "font-face": "Roboto", "font-size": number(points * self.scale),
                        "row-height": row, "font-color": t["text"], "background-color": t["well"],
                        "background-color-alt": t["well_alt"], "selection-font-color": t["on_deep"],
                        "selection-background-color": t["accent_deep"]})

    def list_well(self, name, well, row, heading=None):
        """A list in its well: whole rows, 4 pixels inside, so that the square selection never meets a round corner.
        `heading` is (icon, fixed words or "", placeholder or "")."""
        self.sheet.well(well)
        least = round(36 * self.scale) if heading else 4
        # As many rows as fit, and those as high as the well allows.
        rows = (well.h - least - 4) // row
        row = (well.h - least - 4) // rows
        top = well.y + (well.h - rows * row - 4 if heading else (well.h - rows * row) // 2)
        if heading:
            icon, words, placeholder = heading
            icon_x = well.x + 4 + 8 + self["list_icon"] / 2
            text_x = well.x + 4 + 8 + self["list_icon"] + 8
            middle = (well.y + top - 1) / 2
            self.mark(icon, icon_x, middle, 26)
            self.sheet.rule(well.x, top - 1, well.w)
            if words:
                self.words(words, text_x, middle, 15)
            else:
                self.label("heading", placeholder, text_x, middle, well.right - 8 - text_x, 15, "dim", "medium")
        self.grid(name, Box(well.x + 4, top, well.w - 8, rows * row), row)

    def text_box(self, name, box, points, face="medium", align="left"):
        t = self.theme
        family, bold, _ = FACES[face]
        self.set(name, {**place(box), "font-face": family, "font-size": number(points * self.scale),
                        "font-style": "b" if bold else "", "align": align, "font-color": t["text"],
                        "background-color": t["well"]})

    def slider(self, name, box):
        """The page is painted into the track, since a slider hides what lies below it."""
        knob = self["knob"]
        track = self.skin.sheet(box.w, box.h, (box.x, box.y))
        track.page(self.width, self.height)
        track.groove(box, knob)
        picture = self.skin.picture(f"{name}-track", track)
        # The knob covers its part of the track whole, wherever it stands: page in its corners, groove behind it.
        handle = self.skin.sheet(knob, box.h, (0, box.y))
        handle.page(self.width, self.height)
        handle.knob(Box(0, box.y, knob, box.h))
        self.set(name, {**place(box), "background-image": picture,
                        "slider-image": self.skin.picture("knob", handle), "slider-width": knob})
        self.sheet.groove(box, knob)

    # ---- out

    def tree(self):
        picture = self.skin.picture(self.name, self.sheet)
        tree = {"background-color": self.theme["bg_bot"], "background-image": picture, **self.special}
        names = Names()
        tree["buttons"] = {
            names.unique(b.name): {"posx": b.box.x, "posy": b.box.y, "command": b.command,
                                   "normal-image": f"images/{b.picture}.png",
                                   "active-image": f"images/{b.picture}-down.png"}
            for b in self.buttons}
        names = Names()
        tree["labels"] = {names.unique(label.name): self.label_tree(label) for label in self.labels}
        return tree

    def label_tree(self, label):
        family, bold, _ = FACES[label.face]
        tree = {**place(label.box), "text": label.text, "shadow-distance": 0, "font-face": family,
                "font-size": number(label.points), "font-color": self.theme[label.color], "align": label.align}
        if bold:
            tree["font-style"] = "b"
        if label.characters:
            tree["charcount"] = label.characters
        return tree


class Names:
    """Element names that are told apart by a number where one occurs twice."""

    def __init__(self):
        self.seen = {}

    def unique(self, name):
        self.seen[name] = count = self.seen.get(name, 0) + 1
        return name if count == 1 else f"{name}-{count}"


def place(box):
    return {"posx": box.x, "posy": box.y, "width": box.w, "height": box.h}


def number(value):
    return f"{round(value, 1):g}"


def element(name, content, depth):
    indent = "  " * depth
    if isinstance(content, dict):
        inner = [line for child, value in content.items() for line in element(child, value, depth + 1)]
        return [f"{indent}<{name}>", *inner, f"{indent}</{name}>"]
    return [f"{indent}<{name}>{escape(str(content))}</{name}>"]
