"""What several screens share: the bar, pairs of keys, lists in their wells, the frame of a box."""

from layout import Box

SCROLL_KEYS = {"scrollpageup": "page-up", "scrollup": "up", "scrolldown": "down", "scrollpagedown": "page-down"}

# Two keys on one spot: (command, icon, lit) of the one that shows at rest, then of the other. The program keeps the
# right one in front. Play and night tell what a touch does; the others are modes, lit while they are on.
PAIRS = {
    "play": (("mediaplayer.play", "play", False), ("mediaplayer.pause", "pause", False)),
    "night": (("app.night", "night", False), ("app.day", "day", False)),
    "mute": (("app.volumemute", "mute", False), ("app.volumemute", "mute", True)),
    "shuffle": (("mediaplayer.mode.shuffle", "shuffle", False), ("mediaplayer.mode.repeat", "shuffle", True)),
    "add": (("mediaplayer.add2playlist", "playlist-add", False),
            ("mediaplayer.removefromplaylist", "playlist-remove", True)),
    "slideshow": (("gallery.slideshowon", "slideshow", False), ("gallery.slideshowoff", "slideshow", True)),
}


def add_pair(form, box, name, size=34, kind="flat", captioned=False, key_name="", ground=""):
    # The last key of a file lies on top; of two with one command it is the one at rest.
    for command, icon, lit in reversed(PAIRS[name]):
        form.key(box, command, icon, size, icon if captioned else "", kind, lit=lit, pair=name, name=key_name,
                 ground=ground)


def new_screen(skin, name, here=None):
    """A full form with its page and the bar. `here` is the bar's key that leads to this form."""
    form = skin.form(name)
    form.sheet.page(form.width, form.height)
    add_bar(form, here)
    return form


def add_bar(form, here):
    sheet, theme, k = form.sheet, form.theme, form.measures
    height, key_width, key_height = k["bar"], k["bar_key"], k["target"]
    top = form.height - height
    y = top + (height - key_height) // 2
    sheet.brushed(0, top, form.width, height)
    sheet.rect(0, top - 2, form.width, 2, 0, theme["key_lo"])
    sheet.rect(0, top, form.width, 1.5, 0, "url(#hair)")
    icon = key_height * .52 / form.scale
    x = k["bar_margin"]
    for name, command in (("home", "mainmenu.show"), ("back", "app.goback"), ("player", "mediaplayer.show")):
        form.key(Box(x, y, key_width, key_height), command, name, icon, kind="bar", name="bar-" + name)
        if name == here:
            sheet.rect(x + key_width / 2 - 18, top, 36, 4, 0, theme["accent"])
        x += key_width + k["key_gap"]
    clock_left = x - k["key_gap"]

    # Mute, minus, value and plus lie in one well; the value has the room of its longest text.
    value = round(key_height * .95)
    gap = k["key_gap"]
    right_end = form.width - k["bar_margin"]
    x = well_left = right_end - 3 * key_width - value - 2 * gap
    sheet.well(Box(x, y, right_end - x, key_height))
    add_pair(form, Box(x, y, key_width, key_height), "mute", icon, "bar", key_name="bar-mute", ground="well")
    x += key_width + gap
    form.key(Box(x, y, key_width, key_height), "app.volumedown", "minus", icon, kind="bar", name="bar-minus")
    x += key_width + gap
    sheet.rect(well_left + key_width + gap / 2 - .5, y + 14, 1, key_height - 28, 0, theme["line"])
    middle = y + key_height / 2
    form.label("bar-volume", "**WAVEVOLUME**", x - gap, middle, value + gap, 18, "text", "medium", "center")
    form.key(Box(x + value, y, key_width, key_height), "app.volumeup", "plus", icon, kind="bar", name="bar-plus")
    form.label("bar-clock", "**TIME_SHORT**", clock_left, middle, well_left - clock_left, k["clock_pt"], "text",
               "medium", "center", ground=("bar_top",))


# ---- lists

def add_list(form, name, well, row, heading=None):
    """A list in its well: whole rows, 4 pixels inside, so that the square selection never meets a round corner.
    `heading` is (icon, fixed words or "", placeholder or "")."""
    form.sheet.well(well)
    least = round(36 * form.scale) if heading else 4
    # As many rows as fit, and those as high as the well allows.
    rows = (well.h - least - 4) // row
    row = (well.h - least - 4) // rows
    top = well.y + (well.h - rows * row - 4 if heading else (well.h - rows * row) // 2)
    if heading:
        icon, words, placeholder = heading
        icon_x = well.x + 4 + 8 + form["list_icon"] / 2
        text_x = well.x + 4 + 8 + form["list_icon"] + 8
        middle = (well.y + top - 1) / 2
        form.mark(icon, icon_x, middle, 26)
        form.sheet.rule(well.x, top - 1, well.w)
        if words:
            form.words(words, text_x, middle, 15)
        else:
            form.label("heading", placeholder, text_x, middle, well.right - 8 - text_x, 15, "dim", "medium")
    form.grid(name, Box(well.x + 4, top, well.w - 8, rows * row), row)


def add_scroll_column(form, column, names=tuple(SCROLL_KEYS)):
    for cell, name in zip(column.rows(["1*"] * len(names), form["key_gap"]), names):
        form.key(cell, f"{form.name}.{name}", SCROLL_KEYS[name], 34, kind="flat")


def add_list_with_keys(form, area, name, heading, share=.53):
    """A list in its well and the column of scroll keys beside it: a share of the form's width. Returns what is left of
    the area."""
    left, right = area.columns([round(share * form.width), "1*"], form["gap"])
    well, column = left.columns(["1*", form["scroll"]], form["gap"])
    add_list(form, name, well, form["row"], heading)
    add_scroll_column(form, column)
    return right


def add_box_with_keyboard(form, row, name, points, align="left"):
    """A text box in its well, and the key that brings the keyboard for it."""
    well, key = row.columns(["1*", form["scroll"]], form["key_gap"])
    form.sheet.well(well)
    form.text_box(name, Box(well.x + 10, well.y + 8, well.w - 20, well.h - 16), points, align=align)
    form.key(key, "externalapps.onscreenkeyboard", "keyboard", 34, kind="flat", name="keyboard")


def draw_box_frame(form):
    """Of a form that stands over others. Its outside is square: nothing shines through a form's corners."""
    sheet, theme, w, h = form.sheet, form.theme, form.width, form.height
    sheet.rect(0, 0, w, h, 0, theme["key_lo"])
    sheet.rect(6, 6, w - 12, h - 12, 0, theme["silver_lo"])
    sheet.rect(7, 7, w - 14, h - 14, 0, "url(#bar)")
    sheet.rect(7, 6, w - 14, 2, 0, "url(#hair)")
