"""A drawing: the surfaces, keys and icons of the look, written as SVG."""

import html
from typing import NamedTuple

from icons import ICONS, STROKE
from tokens import CAPITAL, px

GREEN_AND_RED = ("call", "hang")


def gradient(name, first, second, across=False):
    end = 'x2="1" y2="0"' if across else 'x2="0" y2="1"'
    return (f'<linearGradient id="{name}" x1="0" y1="0" {end}><stop offset="0" stop-color="{first}"/>'
            f'<stop offset="1" stop-color="{second}"/></linearGradient>')


class Face(NamedTuple):
    """What is painted on a key. Kinds: key (raised), prime (raised, silver rim), flat, call, hang, bar (no surface)."""
    kind: str = "key"
    icon: str = ""
    size: float = 0       # of the icon
    caption: str = ""     # words as they are painted
    points: float = 15    # of the caption
    weight: int = 500
    lit: bool = False     # the thing that the key switches is on
    radius: int = 12      # of the corners
    ground: str = ""      # of a key without a surface that hides another below it: the colour that it stands on


class Sheet:
    """`theme` holds the colours, `radius` is that of wells. A sheet can show a part of a larger page: then `origin` is the
    part's place in it."""

    def __init__(self, width, height, theme, radius, origin=(0, 0)):
        self.width, self.height, self.theme, self.radius, self.origin = width, height, theme, radius, origin
        self.parts = []

    def add(self, text):
        self.parts.append(text)

    def rect(self, x, y, w, h, radius=0, fill="none", more=""):
        self.add(f'<rect x="{x:g}" y="{y:g}" width="{w:g}" height="{h:g}" rx="{radius:g}" fill="{fill}" {more}/>')

    def circle(self, x, y, radius, fill="none", more=""):
        self.add(f'<circle cx="{x:g}" cy="{y:g}" r="{radius:g}" fill="{fill}" {more}/>')

    def icon(self, name, x, y, size, color):
        """Centred on x, y."""
        self.add(f'<g transform="translate({x - size / 2:.2f} {y - size / 2:.2f}) scale({size / 24:.4f})" '
                 f'color="{color}" fill="none" stroke="currentColor" stroke-width="{STROKE}" stroke-linecap="round" '
                 f'stroke-linejoin="round">{ICONS[name]}</g>')

    def text(self, x, baseline, words, points, color, weight=400, anchor="start"):
        self.add(f'<text x="{x:.1f}" y="{baseline:.1f}" font-family="Roboto, \'Liberation Sans\'" '
                 f'font-weight="{weight}" font-size="{px(points):.2f}" fill="{color}" text-anchor="{anchor}" '
                 f'xml:space="preserve">{html.escape(words)}</text>')

    # ---- surfaces

    def page(self, width, height):
        self.rect(0, 0, width, height, 0, "url(#bg)")

    def brushed(self, x, y, w, h):
        self.rect(x, y, w, h, 0, "url(#bar)")
        self.add(f'<rect x="{x}" y="{y}" width="{w}" height="{h}" filter="url(#brush)"/>')

    def well(self, box, radius=None):
        r = self.radius if radius is None else radius
        self.rect(box.x - 1, box.y - 1, box.w + 2, box.h + 2, r + 1, self.theme["well_edge"])
        self.rect(box.x, box.y, box.w, box.h, r, self.theme["line"], 'opacity=".55"')
        self.rect(box.x, box.y, box.w, box.h - 1, r, self.theme["well"])

    def rule(self, x, y, w, faint=False):
        self.rect(x, y, w, 1, 0, self.theme["line"], 'opacity=".6"' if faint else "")

    def groove(self, box, knob):
        """Of a slider, with its five marks where the knob's middle comes to stand."""
        middle = box.middle
        self.rect(box.x, middle - 5, box.w, 11, 5.5, self.theme["line"])
        self.rect(box.x, middle - 6, box.w, 11, 5.5, self.theme["well_edge"])
        for i in range(5):
            x = box.x + knob / 2 + (box.w - knob) * i / 4 - .75
            self.rect(x, middle + 12, 1.5, 6 if i % 2 == 0 else 4, 0, self.theme["silver_lo"])

    def knob(self, box):
        self.rect(box.x, box.y + 2, box.w, box.h - 2, 8, self.theme["key_lo"])
        self.rect(box.x, box.y, box.w, box.h - 2, 8, "url(#silver)")
        self.rect(box.x + 1.5, box.y + 1.5, box.w - 3, box.h - 5, 6.5, "url(#key)")
        self.rect(box.center - 2, box.y + box.h * .24, 4, box.h * .5 - 2, 2, self.theme["accent"])

    # ---- keys

    def plate(self, w, h, face, pressed):
        """The surface of a key that fills the sheet."""
        t, kind, r = self.theme, face.kind, face.radius
        if pressed:
            self.rect(0, 0, w, h, r, t["key_lo"])
            self.rect(1, 1, w - 2, h - 2, r - 1, "url(#press-edge)")
            self.rect(3, 3, w - 6, h - 6, r - 3, "url(#press)")
            return
        if kind == "bar":
            if face.ground:
                self.rect(2, 2, w - 4, h - 5, r, t[face.ground])
            return
        self.rect(0, 1, w, h - 1, r, t["key_lo"])
        self.rect(0, 0, w, h - 2, r, t["line"] if kind == "flat" else "url(#edge)")
        fill = kind if kind in ("flat", *GREEN_AND_RED) else "key"
        self.rect(1, 1, w - 2, h - 4, r - 1, f"url(#{fill})")
        if kind == "prime" and not face.lit:
            self.rect(2, 2, w - 4, h - 6, r - 2, "none", 'stroke="url(#silver)" stroke-width="2"')

    def key(self, w, h, face, pressed):
        t = self.theme
        self.plate(w, h, face, pressed)
        lit = face.lit and not pressed
        ink = t["press_ink"] if pressed else t["accent"] if lit else \
            t["silver"] if face.kind in ("flat", "bar") else t["text"]
        if lit:
            self.rect(w / 2 - 16, h - 12, 32, 4, 2, t["accent"])
        middle = (h - 2) / 2 + (2 if pressed else 0) - (3 if face.lit else 0)
        capital = px(face.points) * CAPITAL
        if face.icon and face.caption:
            total = face.size * (.86 + .30) + capital
            top = middle - total / 2
            self.icon(face.icon, w / 2, top + face.size * .43, face.size, ink)
            self.text(w / 2, top + total, face.caption, face.points, ink if pressed else t["text"], face.weight,
                      "middle")
        elif face.icon:
            self.icon(face.icon, w / 2, middle, face.size, ink)
        else:
            self.text(w / 2, middle + capital / 2, face.caption, face.points, ink, face.weight, "middle")

    # ---- out

    def definitions(self, body):
        t = self.theme
        known = {
            "key": gradient("key", t["key_top"], t["key_bot"]),
            "flat": gradient("flat", t["flat_top"], t["flat_bot"]),
            "press": gradient("press", t["press_top"], t["press_bot"]),
            "bar": gradient("bar", t["bar_top"], t["bar_bot"]),
            "call": gradient("call", t["call_top"], t["call_bot"]),
            "hang": gradient("hang", t["hang_top"], t["hang_bot"]),
            "edge": gradient("edge", t["key_hi"], t["key_bot"]),
            "press-edge": gradient("press-edge", t["press_edge"], t["press_bot"]),
            "silver": gradient("silver", t["silver_hi"], t["silver_lo"]),
            "bg": gradient("bg", t["bg_top"], t["bg_bot"]),
            "hair": (f'<linearGradient id="hair" x1="0" x2="1"><stop offset="0" stop-color="{t["silver_lo"]}" '
                     f'stop-opacity=".25"/><stop offset=".5" stop-color="{t["silver"]}"/>'
                     f'<stop offset="1" stop-color="{t["silver_lo"]}" stop-opacity=".25"/></linearGradient>'),
            "brush": ('<filter id="brush" x="0" y="0" width="1" height="1"><feTurbulence type="fractalNoise" '
                      'baseFrequency=".006 .85" numOctaves="2" seed="7"/><feColorMatrix values="0 0 0 0 1  0 0 0 0 1  '
                      f'0 0 0 0 1  {t["brush"]} {t["brush"]} 0 0 0"/></filter>'),
            "face": (f'<radialGradient id="face" cx=".5" cy=".5" r=".5"><stop offset="0" stop-color="{t["bg_bot"]}"/>'
                     f'<stop offset=".78" stop-color="{t["well"]}"/><stop offset="1" stop-color="{t["flat_top"]}"/>'
                     '</radialGradient>'),
            "rim": ('<linearGradient id="rim" x1="0" y1="0" x2="1" y2="1">'
                    f'<stop offset="0" stop-color="{t["silver_hi"]}"/>'
                    f'<stop offset=".38" stop-color="{t["silver_lo"]}"/>'
                    f'<stop offset=".6" stop-color="{t["key_hi"]}"/><stop offset="1" stop-color="{t["silver"]}"/>'
                    '</linearGradient>'),
        }
        return "".join(text for name, text in known.items() if f"url(#{name})" in body)

    def svg(self):
        body = "\n".join(self.parts)
        x, y = self.origin
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width}" height="{self.height}" '
                f'viewBox="{x} {y} {self.width} {self.height}"><defs>{self.definitions(body)}</defs>\n{body}</svg>\n')
