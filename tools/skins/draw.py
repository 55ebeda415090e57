#!/usr/bin/python3
"""Draws the default skins and the program's list icons from their descriptions here.

    draw.py skins OUTDIR [NAME...]    a folder for each skin; NAME draws those whose name is given
    draw.py icons OUTDIR [NAME...]    pictures in front of list rows, list-NAME-SIZE.png, and in white those named
    draw.py keyicons OUTDIR           masks of the icons on the keyboard's keys, NAME-SIZE.png
    draw.py check [NAME...]           judges the skins: targets, contrast, pressed look, texts, night

Needs the drawing library of rsvg-convert and the typeface Roboto."""

import os
import sys

sys.dont_write_bytecode = True  # the source tree stays as it is

from captions import LANGUAGES
from forms import EVERY_FORM
from icons import ICONS, document
from raster import Writer, remove_strangers
from skin import Skin
from tokens import (DIALOG_ICON_SIZES, KEY_ICON_SIZES, KEY_ICONS, LIST_ICON, LIST_ICON_SIZES, SIZES, THEMES,
                    skin_name)


def build_skin(size, theme, language):
    skin = Skin(size, theme, language)
    for add_form in EVERY_FORM:
        add_form(skin)
    return skin


def chosen(names):
    """(size, theme) of every skin, or of those named."""
    known = {skin_name(size, theme): (size, theme) for size in SIZES for theme in THEMES}
    unknown = set(names) - set(known)
    if unknown:
        sys.exit(f"draw.py: no such skin: {', '.join(sorted(unknown))}")
    return [known[name] for name in names or known]


def draw_skins(out, names):
    writer = Writer()
    for size, theme in chosen(names):
        skin, *translations = (build_skin(size, theme, language) for language in LANGUAGES)
        folder = os.path.join(out, skin.name)
        images = os.path.join(folder, "images")
        xml = skin.xml()
        write_pictures(writer, images, skin.pictures, {translation.language for translation in translations})
        for translation in translations:
            if translation.xml() != xml:
                raise ValueError(f"{skin.name}: {translation.language} does more than speak another language")
            differing = dict(translation.pictures.items() - skin.pictures.items())
            write_pictures(writer, os.path.join(images, translation.language), differing)
        write_pictures(writer, os.path.join(folder, "osk"), skin.keyboard_pictures())
        # Last: a skin that was not drawn to its end must not look whole.
        with open(os.path.join(folder, "skindata.xml"), "w", encoding="utf-8") as file:
            file.write(xml)


def write_pictures(writer, folder, pictures, folders=frozenset()):
    """`folders` are those that may lie beside the pictures."""
    os.makedirs(folder, exist_ok=True)
    for name, picture in pictures.items():
        writer.write(*picture, os.path.join(folder, name + ".png"))
    remove_strangers(folder, folders | {name + ".png" for name in pictures})


def draw_icons(out, names):
    writer = Writer()
    os.makedirs(out, exist_ok=True)
    for name in ICONS:
        if name.startswith("list-"):
            for size in LIST_ICON_SIZES:
                writer.write(document(name, size, LIST_ICON), size, size, os.path.join(out, f"{name}-{size}.png"))
    for name in names:
        for size in DIALOG_ICON_SIZES:
            writer.write(document(name, size, "#FFFFFF"), size, size, os.path.join(out, f"{name}-{size}.png"))


def draw_key_icons(out):
    writer = Writer()
    os.makedirs(out, exist_ok=True)
    for name in KEY_ICONS:
        for size in KEY_ICON_SIZES:
            writer.write(document(name, size, "#FFFFFF"), size, size, os.path.join(out, f"{name}-{size}.png"))


def main(arguments):
    if len(arguments) >= 2 and arguments[0] == "skins":
        draw_skins(arguments[1], arguments[2:])
    elif len(arguments) >= 2 and arguments[0] == "icons":
        draw_icons(arguments[1], arguments[2:])
    elif len(arguments) == 2 and arguments[0] == "keyicons":
        draw_key_icons(arguments[1])
    elif arguments and arguments[0] == "check":
        from checks import check_skins
        sys.exit(check_skins([build_skin(*which, language) for which in chosen(arguments[1:]) for language in LANGUAGES]))
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
