"""The media search: what was found, with the word as its heading; six keys; a board of letters in the order of the
alphabet."""

from layout import Box
from skin import plain

from .common import new_screen

ACTIONS = (("playnow", "play", "prime"), ("jump2folder", "open-folder", "flat"), ("scrollup", "up", "flat"),
           ("add2playlist", "playlist-add", "flat"), ("makeindex", "index", "flat"), ("scrolldown", "down", "flat"))
BOARD = "ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜß"
# Behind the letters. Digits and signs stand on the keyboard.
BOARD_KEYS = (("externalapps.onscreenkeyboard", "", "digits", "flat"), ("mediasearch.text. ", "space", "", "key"),
              ("mediasearch.text.clear", "clear", "", "flat"))
ACROSS, DOWN = 11, 3


def add_media_search(skin):
    form = new_screen(skin, "mediasearch")
    m, gap = form["margin"], form["key_gap"]
    edge = 8 if form["small"] else m
    head, row, rows = form["search"]
    actions = 3 * form["scroll"] + 2 * gap
    height = head + rows * row + 4
    well = Box(m, edge, form.width - 2 * m - actions - gap, height)
    add_found(form, well, head, row, rows)
    for cell, (word, icon, kind) in zip(Box(well.right + gap, edge, actions, height).cells(3, 2, gap), ACTIONS):
        form.key(cell, "mediasearch." + word, icon, 34, kind=kind)
    top = edge + height + form["tight_gap" if form["small"] else "gap"]
    bottom = form.height - form["bar"] - (8 if form["small"] else form["gap"])
    add_board(form, Box(m, top, form.width - 2 * m, bottom - top))


def add_found(form, well, head, row, rows):
    scale, middle = form.scale, well.y + head / 2
    form.sheet.well(well)
    form.mark("search", well.x + 28 * scale, middle, 26)
    form.sheet.rule(well.x, well.y + head - 1, well.w)
    state = round(196 * scale)
    left = well.x + round(56 * scale)
    form.text_box("searchtermbox", Box(left, well.y + 6, well.right - 18 - state - 8 - left, head - 12), 20)
    form.label("state", "**MEDIASEARCHRESULT**", well.right - 18 - state, middle, state, 15, "dim", "medium", "right")
    form.grid("resultlist", Box(well.x + 4, well.y + head, well.w - 8, rows * row), row)


def add_board(form, area):
    gap = form["letter_gap"]
    cells = [cell for row in area.rows(["1*"] * DOWN, gap) for cell in row.columns(["1*"] * ACROSS, gap)]
    for cell, letter in zip(cells, BOARD):
        form.key(cell, "mediasearch.text." + letter.lower(), caption=letter, points=24, name="letter-" + plain(letter),
                 letter=True)
    for cell, (command, icon, caption, kind) in zip(cells[len(BOARD):], BOARD_KEYS):
        form.key(cell, command, icon, 32, caption, kind, 17, name="board-" + (icon or caption), letter=True)
