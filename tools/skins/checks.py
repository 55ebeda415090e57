"""Judges described skins: what a driver's finger and eye need of them. Prints one line for each fault."""

import os

from captions import LANGUAGES
from fontwidth import Fonts
from form import WEIGHTS
from raster import Raster
from tokens import contrast, px, relative_luminance

# Width, height, distance. Letters are hit by feel of the board, and a wrong one is soon mended.
LEAST_KEY, LEAST_LETTER = (76, 76, 8), (64, 51, 6)
LEAST_TEXT_CONTRAST, LEAST_PRESS_CONTRAST, LEAST_ROW_CONTRAST = 4.5, 4.0, 2.0
MOST_NIGHT_SHARE, MOST_NIGHT_MEAN = .35, .02    # of the day's mean luminance; of white
CAPTION_EDGE = 5          # between a caption and its key's edge

# Ink and the lightest of the grounds that it stands on.
INKS = (("text", ("key_top", "flat_top", "well", "well_alt", "bg_top", "bar_top", "call_top", "hang_top")),
        ("dim", ("well", "bg_top", "bar_top")), ("silver", ("flat_top", "bar_top", "well")),
        ("on_deep", ("accent_deep",)), ("accent", ("flat_top", "well", "bar_top", "bg_top")),
        ("press_ink", ("press_top", "press_bot")))
# What live values come to at their longest; "{KEY}" is a text of the language.
LONGEST = {
    "**TIME_SHORT**": "10:48 AM", "**MEDIAPOSITION**": "1:08:48/1:58:48", "**WAVEVOLUME**": "Mute",
    "**RADIOFREQUENCY**": "104.50", "**PHONEBATTERY**": "100%*", "**PHONESIGNAL**": "100%",
    "**PHONESTATUS**": "Disconnected",
    "**UNREADSMS**": "88", "**SMSCHARS**": "1600", "**GPS_SATNUM**": "!GPS", "**GPS_SPEED**": "188 km/h",
    "**GPS_POSITION**": "4807.038 N, 01131.000 E", "**GPS_ALTITUDE**": "-1848.8",
    "**MEDIASEARCHRESULT**": "{MEDIASEARCH_STATUS_FILESFOUND} 84300",
}
BAR = ("bar-home", "bar-back", "bar-player", "bar-mute", "bar-mute", "bar-minus", "bar-plus")
FAMILIES = ("Roboto", "Liberation Sans")


def check_skins(skins):
    """Exit code: 0 without a fault, else 1. What a translation shares with its original is looked at once."""
    fonts = {family: Fonts(family) for family in FAMILIES}
    means, faults = {}, 0
    for skin in skins:
        skin.xml()    # makes the background pictures
        found = list(check_texts(skin, fonts))
        if skin.language == LANGUAGES[0]:
            found += [*check_targets(skin), *check_bar(skin), *check_contrast(skin), *check_pressed(skin)]
            means[skin.size, skin.theme_name] = {form.name: mean_luminance(skin, form) for form in skin.forms}
            if skin.theme_name == "night":
                found += check_night(skin)
                found += check_dimness(means.get((skin.size, "day"), {}), means[skin.size, "night"])
        for fault in found:
            print(f"{skin.name}, {skin.language}: {fault}")
        faults += len(found)
        menu = means[skin.size, skin.theme_name]["mainmenu"] * 100
        print(f"{skin.name}, {skin.language}: {sum(len(form.buttons) for form in skin.forms)} keys, "
              f"{len(skin.pictures)} pictures, menu's mean luminance {menu:.1f} %, faults {len(found)}")
    return 1 if faults else 0


# ---- targets

def check_targets(skin):
    for form in skin.forms:
        for i, key in enumerate(form.buttons):
            box = key.box
            width, height, apart = least(key)
            if box.w < width or box.h < height:
                yield f"{form.name}/{key.name}: {box.w}x{box.h} is too small for a finger"
            if box.x < 0 or box.y < 0 or box.right > form.width or box.bottom > form.height:
                yield f"{form.name}/{key.name}: outside the form"
            for other in form.buttons[i + 1:]:
                if not (key.pair and key.pair == other.pair) and gap(box, other.box) < max(apart, least(other)[2]):
                    yield f"{form.name}/{key.name}: {gap(box, other.box)} from {other.name}"


def least(key):
    return LEAST_LETTER if key.letter else LEAST_KEY


def gap(one, other):
    return max(max(one.x, other.x) - min(one.right, other.right), max(one.y, other.y) - min(one.bottom, other.bottom))


def check_bar(skin):
    """The bar is found without looking: it never moves."""
    bars = {form.name: [key for key in form.buttons if key.name.startswith("bar-")] for form in skin.forms
            if (form.width, form.height) == skin.size}
    first = bars["mainmenu"]
    if tuple(key.name for key in first) != BAR:
        yield f"the bar has other keys: {', '.join(key.name for key in first)}"
    yield from (f"{name}: another bar" for name, bar in bars.items() if bar != first)


# ---- colours

def check_contrast(skin):
    theme = skin.theme
    for ink, grounds in INKS:
        for ground in grounds:
            ratio = contrast(theme[ink], theme[ground])
            if ratio < LEAST_TEXT_CONTRAST:
                yield f"{ink} on {ground}: contrast {ratio:.2f}"
    for ground in ("well", "well_alt"):
        ratio = contrast(theme["accent_deep"], theme[ground])
        if ratio < LEAST_ROW_CONTRAST:
            yield f"selected row against {ground}: contrast {ratio:.2f}"
    for ground in ("key_top", "flat_top"):
        ratio = contrast(theme["press_bot"], theme[ground])
        if ratio < LEAST_PRESS_CONTRAST:
            yield f"pressed plate against {ground}: contrast {ratio:.2f}"
    for form in skin.forms:
        for label in form.labels:
            for ground in label.ground:
                ratio = contrast(theme[label.color], theme[ground])
                if ratio < LEAST_TEXT_CONTRAST:
                    yield f"{form.name}/{label.name}: contrast {ratio:.2f} on {ground}"


def luminances(picture, ground):
    """Of a spread of pixels, with `ground` (linear) behind what shines through."""
    # A step that divides the width would look at the same columns again and again.
    step = next(step for step in (7, 11, 13, 17) if picture[1] % step)
    with Raster(*picture) as raster:
        data = raster.pixels()
    for at in range(0, len(data), 4 * step):
        blue, green, red, alpha = data[at:at + 4]
        yield relative_luminance(red, green, blue) + ground * (1 - alpha / 255)


def check_pressed(skin):
    """The pressed look is told by brightness alone, on most of the key."""
    ground = relative_luminance(*bytes.fromhex(skin.theme["bar_top"][1:]))
    for name, down in skin.pictures.items():
        normal = skin.pictures.get(name.removesuffix("-down"))
        if not name.endswith("-down"):
            continue
        if (normal.width, normal.height) != (down.width, down.height):
            yield f"{name}: another size than at rest"
            continue
        pairs = list(zip(luminances(normal, ground), luminances(down, ground)))
        changed = sum(abs(a - b) >= .15 for a, b in pairs) / len(pairs)
        if changed < .8:
            yield f"{name}: only {changed:.0%} of it changes"


def mean_luminance(skin, form):
    """Of the form at rest, without texts and the user's pictures: 0..1."""
    parts = [skin.pictures[form.name].svg]
    for key in form.buttons:
        svg = skin.pictures[key.picture].svg
        parts.append(svg.replace("<svg ", f'<svg x="{key.box.x}" y="{key.box.y}" ', 1))
    whole = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{form.width}" height="{form.height}">'
             + "".join(parts) + "</svg>")
    values = list(luminances((whole, form.width, form.height), 0))
    return sum(values) / len(values)


def check_dimness(day, night):
    for name, mean in night.items():
        if name in day and mean > MOST_NIGHT_SHARE * day[name]:
            yield f"{name}: {mean / day[name]:.0%} as bright as by day"
        if mean > MOST_NIGHT_MEAN:
            yield f"{name}: {mean:.1%} as bright as white"


def check_night(skin):
    """Warm and dark: nothing bright, nothing bluish. The key that accepts a call stays green."""
    for name, picture in skin.pictures.items():
        if name.startswith("call"):
            continue
        with Raster(*picture) as raster:
            data = raster.pixels()
        for at in range(0, len(data), 4 * 5):
            blue, green, red, _ = data[at:at + 4]
            if relative_luminance(red, green, blue) > .45:
                yield f"{name}: a pixel as bright as #{red:02X}{green:02X}{blue:02X}"
                break
            if blue > green + 1 or green > red + 1:    # blending rounds
                yield f"{name}: a cold pixel #{red:02X}{green:02X}{blue:02X}"
                break


# ---- texts

def check_texts(skin, fonts):
    texts = language_texts(skin.language)
    for form in skin.forms:
        for label in form.labels:
            words = LONGEST.get(label.text, "" if label.text.startswith("**") else label.text).format(**texts)
            for family, font in fonts.items():
                width = font.width(words, px(label.points), WEIGHTS[label.face])
                if width > label.box.w:
                    yield f"{form.name}/{label.name}: {words} is {width:.0f} wide in {family}, has {label.box.w}"
    for name, (width, caption, points, weight) in skin.captions_on_keys.items():
        wide = fonts["Roboto"].width(caption, px(points), weight)
        if wide > width - 2 * CAPTION_EDGE:
            yield f"{name}: {caption} is {wide:.0f} wide"


def language_texts(language):
    """The texts of the program, by key."""
    path = os.path.join(os.path.dirname(__file__), f"../../data/lang/{language}.ini")
    with open(path, encoding="utf-8") as file:
        return dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line and not line.startswith(";"))
