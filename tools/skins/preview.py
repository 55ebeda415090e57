#!/usr/bin/python3
"""One PNG of each form of a finished skin, from its skindata.xml and pictures alone, with plausible values in labels,
lists and boxes.

    preview.py [--pressed] SKINDIR OUTDIR [FORM...]

--pressed shows every key as under a finger, and of a toggle pair the key behind."""

import base64
import math
import os
import subprocess
import sys
import xml.etree.ElementTree as tree

sys.dont_write_bytecode = True

from icons import document
from tokens import LIST_ICON

FORMS = ("mainmenu", "mediaplayer", "playlists", "mediasearch", "gallery", "dvdplayer", "radio", "phone", "smsbox",
         "gps", "externalapps", "quickbardocked", "quickbarfloating", "messagebox")
TEXTS = {
    "**TIME_SHORT**": "10:42 AM", "**MEDIATITLE**": "Harbour Lights +++ Harbour Lights +++ Harbour Lights",
    "**MEDIAPOSITION**": "01:23/04:56", "**MEDIALISTCONTENT**": "Evening Drive", "**WAVEVOLUME**": "100%",
    "**CURRENTGALLERYFOLDER**": "Lake Weekend", "**RADIOFREQUENCY**": "104.50",
    "**MEDIASEARCHRESULT**": "Files found: 12",
    "**PHONEBATTERY**": "100%*", "**PHONESIGNAL**": "80%", "**PHONESTATUS**": "Disconnected", "**SMSCHARS**": "48",
    "**UNREADSMS**": "2", "**GPS_SATNUM**": "08", "**GPS_SPEED**": "127 km/h",
    "**GPS_POSITION**": "4807.038 N, 01131.000 E",
    "**GPS_ALTITUDE**": "-1545.4",
    "**MESSAGEBOXTEXT**": "The media index is out of|date. Rebuild it now?|A third line|A fourth line|A fifth line",
}
ROWS = {
    "medialist": (("list-folder", "Compilations"), ("list-this", "Harbour Lights.mp3"),
                  ("list-audio", "Northbound.mp3"), ("list-audio", "Slow Avenue.mp3"),
                  ("list-audio", "Glass and Granite.mp3"), ("list-audio", "Late Ferry.mp3")),
    "playlistlist": tuple((None, name + ".m3u") for name in ("Evening Drive", "Family", "Long Distance", "Monday")),
    "applist": tuple((None, name) for name in ("Browser", "Calculator", "Fuel Log", "Mail", "Navigation", "Notes")),
    "imglist": (("list-folder", "Older trips"), ("list-image", "Lake 01.jpg"), ("list-image", "Lake 02.jpg"),
                ("list-image", "Lake 03.jpg")),
    "resultlist": (("list-audio", "Harbour Lights.mp3"), ("list-audio", "Harbourmaster.mp3"),
                   ("list-video", "Harbour.avi")),
    "phonebooklist": (("list-mobile", "Anna Berg"), ("list-work", "Anna Berg"), ("list-home", "Carlsen, Jonas"),
                      ("list-fax", "Office"), ("list-other", "Service line")),
}
BOXES = {"namebox": "Evening Drive", "searchtermbox": "HARB", "numberbox": "+49 170 5550142",
         "smsnumberbox": "+49 170 5550142", "smstextbox": "Running ten minutes late,|please start without me."}
ANCHOR = {"left": "start", "center": "middle", "right": "end"}
ASCENT, LINE, CAPITAL = 1.048, 1.32, .711


class Preview:
    def __init__(self, folder, section, pressed):
        self.folder, self.section, self.pressed, self.parts = folder, section, pressed, []

    def number(self, node, name):
        return float(node.findtext(name, "0"))

    def place(self, node):
        return [self.number(node, name) for name in ("posx", "posy", "width", "height")]

    def picture(self, path, x, y, clip=""):
        """Returns its size; the PNG goes into the SVG whole."""
        with open(os.path.join(self.folder, path), "rb") as file:
            data = file.read()
        w, h = (int.from_bytes(data[i:i + 4], "big") for i in (16, 20))
        self.parts.append(f'<image x="{x}" y="{y}" width="{w}" height="{h}" {clip} '
                          f'href="data:image/png;base64,{base64.b64encode(data).decode()}"/>')
        return w, h

    def rect(self, x, y, w, h, color):
        self.parts.append(f'<rect x="{x}" y="{y}" width="{w}" height="{h}" fill="{color}"/>')

    def text(self, node, words, x, baseline, color, anchor="start", bold=False):
        face, size = node.findtext("font-face", "Arial"), self.number(node, "font-size") * 96 / 72
        plain = 700 if bold or "b" in node.findtext("font-style", "") else 400
        weight = {"Roboto Medium": 500, "Roboto Light": 300}.get(face, plain)
        family = "Roboto" if face.startswith("Roboto") else face
        words = words.replace("&", "&amp;").replace("<", "&lt;")
        self.parts.append(f'<text x="{x}" y="{baseline:.2f}" font-family="{family}" font-weight="{weight}" '
                          f'font-size="{size:.2f}" fill="{color}" text-anchor="{anchor}" '
                          f'xml:space="preserve">{words}</text>')

    def label(self, node):
        x, y, w, h = self.place(node)
        words = TEXTS.get(node.findtext("text"), node.findtext("text"))
        if node.findtext("charcount"):
            words = words[:int(node.findtext("charcount"))]
        size, align = self.number(node, "font-size") * 96 / 72, node.findtext("align", "center")
        self.parts.append(f'<svg x="{x}" y="{y}" width="{w}" height="{h}" viewBox="{x} {y} {w} {h}">')
        for i, line in enumerate(words.split("|")):
            self.text(node, line, {"left": x, "center": x + w / 2, "right": x + w}[align],
                      y + ASCENT * size + i * LINE * size, node.findtext("font-color"), ANCHOR[align])
        self.parts.append("</svg>")

    def box(self, node, name):
        x, y, w, h = self.place(node)
        self.rect(x, y, w, h, node.findtext("background-color"))
        size, align = self.number(node, "font-size") * 96 / 72, node.findtext("align", "center")
        lines = BOXES[name].split("|")
        first = y + (h + CAPITAL * size) / 2 if len(lines) == 1 else y + ASCENT * size
        for i, line in enumerate(lines):
            self.text(node, line, {"left": x + 2, "center": x + w / 2, "right": x + w - 2}[align],
                      first + i * LINE * size, node.findtext("font-color"), ANCHOR[align])

    def grid(self, node, name):
        x, y, w, h = self.place(node)
        row = self.number(node, "row-height")
        icon_size = 20 if row <= 25 else 24 if row <= 31 else 28 if row <= 63 else 32
        self.rect(x, y, w, h, node.findtext("background-color"))
        self.parts.append(f'<svg x="{x}" y="{y}" width="{w}" height="{h}" viewBox="{x} {y} {w} {h}">')
        for i, (icon, words) in enumerate(ROWS[name]):
            top, chosen = y + i * row, i == (0 if h < 2 * row else 1)
            color = "selection-background-color" if chosen else "background-color-alt" if i % 2 else "background-color"
            self.rect(x, top, w, row, node.findtext(color))
            at = x + 8
            if icon:
                svg = document(icon, icon_size, LIST_ICON)
                self.parts.append(f'<g transform="translate({at} {top + (row - icon_size) / 2})">{svg}</g>')
                at += icon_size + 8
            size = self.number(node, "font-size") * 96 / 72
            self.text(node, words, at, top + (row - LINE * size) / 2 + ASCENT * size,
                      node.findtext("selection-font-color" if chosen else "font-color"), bold=icon == "list-this")
        self.parts.append("</svg>")

    def slider(self, node, share):
        x, y, w, _ = self.place(node)
        self.picture(node.findtext("background-image"), x, y)
        self.picture(node.findtext("slider-image"), x + (w - self.number(node, "slider-width")) * share, y)

    def dash(self, node, speed=87):
        x, y, w, h = self.place(node)
        self.picture(node.findtext("background-image"), x, y)
        needle = node.find("needle")
        angle = math.radians(self.number(needle, "offset") + speed * self.number(needle, "stepping") / 1000)
        length, cx, cy = self.number(needle, "length"), x + w // 2, y + w // 2
        self.parts.append(f'<mask id="needle"><rect width="100%" height="100%" fill="#000"/>'
                          f'<circle cx="{cx}" cy="{cy}" r="{self.number(needle, "center-size")}" fill="#fff"/>'
                          f'<path d="M{cx} {cy}L{cx + length * math.cos(angle)} {cy + length * math.sin(angle)}" '
                          'stroke="#fff" stroke-width="6"/></mask>')
        self.picture(needle.findtext("background-image"), x, y, 'mask="url(#needle)"')

    def special(self):
        for node in self.section:
            if node.tag in ROWS:
                self.grid(node, node.tag)
            elif node.tag in BOXES:
                self.box(node, node.tag)
            elif node.tag in ("posslider", "volslider"):
                self.slider(node, .28 if node.tag == "posslider" else .45)
            elif node.tag == "dash":
                self.dash(node)
            elif node.tag == "dvdcontent":
                x, y, w, h = self.place(node)
                self.picture(node.findtext("logo"), x + w - 80 * (1.3 if w > 1000 else 1), y)

    def buttons(self):
        shown = {}
        for button in self.section.find("buttons"):
            place = button.findtext("posx"), button.findtext("posy")
            # A message box shows two of its three answers at most.
            if button.findtext("command") != "messagebox.ok" and not (self.pressed and place in shown):
                shown[place] = button
        for (x, y), button in shown.items():
            behind = self.pressed and "lit" in button.findtext("normal-image")
            self.picture(button.findtext("active-image" if self.pressed and not behind else "normal-image"), x, y)

    def svg(self, width, height):
        self.picture(self.section.findtext("background-image"), 0, 0)
        self.buttons()
        self.special()
        for label in self.section.find("labels"):
            self.label(label)
        body = "\n".join(self.parts)
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">'
                f'<rect width="100%" height="100%" fill="{self.section.findtext("background-color")}"/>{body}</svg>')


def main(folder, out, names, pressed):
    os.makedirs(out, exist_ok=True)
    skin = tree.parse(os.path.join(folder, "skindata.xml")).getroot()
    for name in names or FORMS:
        section = skin.find(name)
        general = skin.find("general")
        width, height = (section.findtext(side) or general.findtext(side) for side in ("width", "height"))
        svg = Preview(folder, section, pressed).svg(width, height)
        subprocess.run(["rsvg-convert", "--unlimited", "-o", os.path.join(out, name + ".png")], input=svg.encode(),
                       check=True)


if __name__ == "__main__":
    arguments = [argument for argument in sys.argv[1:] if argument != "--pressed"]
    if len(arguments) < 2:
        sys.exit(__doc__)
    main(arguments[0], arguments[1], arguments[2:], "--pressed" in sys.argv)
