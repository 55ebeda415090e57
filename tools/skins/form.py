"""One screen while it is being described: buttons, labels and special elements."""

import math
from typing import NamedTuple

from layout import Box
from sheet import Face
from skindata import named, number, place
from tokens import CAP_MIDDLE, CAPITAL, FACES, LINE, px

WEIGHTS = {name: weight for name, (_, _, weight) in FACES.items()}


class Button(NamedTuple):
    name: str
    box: Box
    command: str
    picture: str          # without "-down" and ".png"
    pair: str             # buttons of one pair share a place on purpose
    letter: bool          # of a board: smaller and closer than other keys

    def tree(self):
        return {"posx": self.box.x, "posy": self.box.y, "command": self.command,
                "normal-image": f"images/{self.picture}.png", "active-image": f"images/{self.picture}-down.png"}


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

    def tree(self, theme):
        family, bold, _ = FACES[self.face]
        tree = {**place(self.box), "text": self.text, "shadow-distance": 0, "font-face": family,
                "font-size": number(self.points), "font-color": theme[self.color], "align": self.align}
        if bold:
            tree["font-style"] = "b"
        if self.characters:
            tree["charcount"] = self.characters
        return tree


class Form:
    """What is drawn on `sheet` becomes the background picture."""

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
            name="", letter=False, ground=""):
        """`size` and `points` are those of the 800 wide screens. `caption` is a key of captions.py, or a letter."""
        look = Face(kind, icon, round(size * self.scale, 1), self.captions.get(caption, caption),
                    points * self.scale, WEIGHTS[face], lit, self["letter_radius" if letter else "radius"], ground)
        name = name or command.removeprefix(self.name + ".").removeprefix("app.").replace(".", "-")
        self.buttons.append(Button(name, box, command, self.skin.key_pictures(box.w, box.h, look, caption), pair,
                                   letter))

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
        """`path` such as "imgdisplay/preview"."""
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
        return {"background-color": self.theme["bg_bot"], "background-image": picture, **self.special,
                "buttons": {name: button.tree() for name, button in named(self.buttons).items()},
                "labels": {name: label.tree(self.theme) for name, label in named(self.labels).items()}}
