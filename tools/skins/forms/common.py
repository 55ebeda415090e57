"""What several screens share: the bar, columns of scroll keys, the frame of a box."""

from layout import Box

SCROLL_KEYS = {"scrollpageup": "page-up", "scrollup": "up", "scrolldown": "down", "scrollpagedown": "page-down"}


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
    for name, command in (("mute", "app.volumemute"), ("minus", "app.volumedown")):
        form.key(Box(x, y, key_width, key_height), command, name, icon, kind="bar", name="bar-" + name)
        x += key_width + gap
    sheet.rect(well_left + key_width + gap / 2 - .5, y + 14, 1, key_height - 28, 0, theme["line"])
    middle = y + key_height / 2
    form.label("bar-volume", "**WAVEVOLUME**", x - gap, middle, value + gap, 18, "text", "medium", "center")
    form.key(Box(x + value, y, key_width, key_height), "app.volumeup", "plus", icon, kind="bar", name="bar-plus")
    form.label("bar-clock", "**TIME_SHORT**", clock_left, middle, well_left - clock_left,
               22 if form.width == 800 else 24, "text", "medium", "center", ground=("bar_top",))


def add_scroll_column(form, column, names=tuple(SCROLL_KEYS)):
    for cell, name in zip(column.rows(["1*"] * len(names), form["key_gap"]), names):
        form.key(cell, f"{form.name}.{name}", SCROLL_KEYS[name], 34, kind="flat")


def add_list_with_keys(form, area, name, heading):
    """A list in its well and the column of scroll keys beside it."""
    well, column = area.columns(["1*", form["scroll"]], form["gap"])
    form.list_well(name, well, form["row"], heading)
    add_scroll_column(form, column)


def draw_box_frame(form):
    """Of a form that stands over others. Its outside is square: nothing shines through a form's corners."""
    sheet, theme, w, h = form.sheet, form.theme, form.width, form.height
    sheet.rect(0, 0, w, h, 0, theme["key_lo"])
    sheet.rect(6, 6, w - 12, h - 12, 0, theme["silver_lo"])
    sheet.rect(7, 7, w - 14, h - 14, 0, "url(#bar)")
    sheet.rect(7, 6, w - 14, 2, 0, "url(#hair)")
