"""The media player: picture and title, the list, sliders and transport keys."""

from layout import Box
from skindata import place

from .common import SCROLL_KEYS, add_list, add_pair, new_screen

# Beside the list, from top to bottom: its scroll keys, and what it shows. A low screen has three keys in a column.
SCROLL = ("scrollpageup", "scrollup", "scrolldown", "scrollpagedown")
LOW_SCROLL = ("scrollpageup", "listselect", "scrollpagedown")
SOURCES = ("audiofolder", "videofolder", "switchlistmode", "listselect")
ICONS = {**SCROLL_KEYS, "listselect": "set", "audiofolder": "folder-audio", "videofolder": "folder-video",
         "switchlistmode": "list"}
PLAY = (("mediaplayer.prev", "previous", "key"), ("mediaplayer.rwnd", "rewind", "flat"), "play",
        ("mediaplayer.ffwd", "forward", "flat"), ("mediaplayer.next", "next", "key"))
OTHER_LISTS = (("playlists.show", "playlist", "flat"), ("mediasearch.show", "search", "flat"))


def add_media_player(skin):
    form = new_screen(skin, "mediaplayer", "player")
    m, gap, small = form["margin"], form["tight_gap"], form["small"]
    edge = 8 if small else m
    area = Box(m, edge, form.width - 2 * m, form.height - form["bar"] - 2 * edge)
    body, sliders, transport = area.rows(["1*", form["slider"], form["key"]], gap)
    left, right = body.columns(["35*", "65*"], form["gap"])
    add_picture(form, left)
    well, scroll, sources = right.columns(["1*", form["scroll"], form["scroll"]], form["key_gap"])
    add_list(form, "medialist", well, form["player_row"], ("list-folder", "", "**MEDIALISTCONTENT**"))
    names = LOW_SCROLL if small else SCROLL
    for column, words in ((scroll, names), (sources, SOURCES[:len(names)])):
        for cell, word in zip(column.rows(["1*"] * len(names), form["key_gap"]), words):
            form.key(cell, "mediaplayer." + word, ICONS[word], 34, kind="flat")
    add_sliders(form, sliders)
    add_transport(form, transport)


def add_picture(form, column):
    """The video or cover, and below it what plays."""
    texts = round((92 if form["small"] else 116) * form.scale)
    picture = Box(column.x, column.y, column.w, column.h - texts)
    form.sheet.rect(picture.x - 1, picture.y - 1, picture.w + 2, picture.h + 2, 0, form.theme["well_edge"])
    form.sheet.rect(*picture, 0, form.theme["well"])
    form.sheet.icon("player", picture.center, picture.middle, picture.h * .34, form.theme["line"])
    form.set("vis", place(picture))
    form.label("title", "**MEDIATITLE**", column.x, picture.bottom + texts * .29, column.w, 21, "text", "bold",
               characters=form["title_chars"], ground=("bg_top",))
    form.label("position", "**MEDIAPOSITION**", column.x, picture.bottom + texts * .74, column.w, form["position_pt"],
               ground=("bg_top",))


def add_sliders(form, row):
    position, volume = row.columns(["5*", "2*"], form["gap"])
    form.slider("posslider", position)
    room = round(40 * form.scale)
    form.mark("sound", volume.x + room * .4, volume.middle, 28)
    form.slider("volslider", Box(volume.x + room, volume.y, volume.w - room, volume.h))


def add_transport(form, row):
    """Groups: playing, the queue, other lists."""
    keys = [*PLAY, None, "shuffle", "add", None, *OTHER_LISTS]
    cells = row.columns(["1*" if key else form["group"] for key in keys], form["key_gap"])
    for cell, key in zip(cells, keys):
        if key == "play":
            add_pair(form, cell, "play", 36 if cell.w < 80 else 40, "prime")
        elif key in ("shuffle", "add"):
            add_pair(form, cell, key)
        elif key:
            command, icon, kind = key
            form.key(cell, command, icon, 34 if kind == "flat" else 36 if cell.w < 80 else 40, kind=kind)
