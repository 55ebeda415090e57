"""The media search: a word, what was found, and letters to type with. Letters stand in the order of the alphabet on
every screen, nine in a row."""

from layout import Box

from .common import add_scroll_column, new_screen

ACTIONS = (("text.clear", "clear", "key"), ("playnow", "play", "prime"), ("jump2folder", "open-folder", "flat"),
           ("add2playlist", "playlist-add", "flat"), ("makeindex", "index", "flat"))


def add_media_search(skin):
    form = new_screen(skin, "mediasearch")
    gap, small, height = form["key_gap"], form["small"], form["target"]
    margin = 17 if form.width == 800 else form["margin"]
    edge = 4 if small else form["tight_gap"]
    area = Box(margin, edge, form.width - 2 * margin, form.height - form["bar"] - 2 * edge)
    keyboard_height = 3 * height + 2 * gap
    top, results, keyboard = area.rows([height, "1*", keyboard_height], form["tight_gap"])
    columns = top.columns(["1*"] * 9, gap)
    scroll = ("scrollup", "scrolldown") if small else ()
    keys = columns[-(len(ACTIONS) + len(scroll)):]
    add_term(form, columns[0].to(columns[8 - len(keys)]))
    for cell, (word, icon, kind) in zip(keys, ACTIONS):
        form.key(cell, "mediasearch." + word, icon, 34, kind=kind)
    for cell, word in zip(keys[len(ACTIONS):], scroll):
        form.key(cell, "mediasearch." + word, word.removeprefix("scroll"), 34, kind="flat")
    add_results(form, results, columns)
    add_letters(form, keyboard)


def add_term(form, well):
    scale = form.scale
    form.sheet.well(well)
    middle = round(46 * scale)
    form.text_box("searchtermbox", Box(well.x + 12, well.y + 4, well.w - 24, middle - 4), 20)
    form.label("state", "**MEDIASEARCHRESULT**", well.x + 16, well.y + middle + 12 * scale, well.w - 28, 13, "dim")


def add_results(form, row, columns):
    if form["small"]:
        well, height = row, 44
    else:
        well = Box(row.x, row.y, columns[7].right - row.x, row.h)
        column = Box(columns[8].x, row.y, columns[8].w, row.h)
        add_scroll_column(form, column, ("scrollup", "scrolldown"))
        height = 50 if form.scale == 1 else 72
    form.list_well("resultlist", well, height)


def add_letters(form, area):
    for cell, letter in zip(area.cells(9, 3, form["key_gap"]), "ABCDEFGHIJKLMNOPQRSTUVWXYZ "):
        if letter == " ":
            form.key(cell, "mediasearch.text. ", "space", 36, name="space")
        else:
            small_letter = letter.lower()
            form.key(cell, "mediasearch.text." + small_letter, caption=letter, points=24, name="letter-" + small_letter)
