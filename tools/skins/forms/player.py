"""The media player: picture and title, the list, sliders and transport keys."""

from layout import Box

from .common import add_scroll_column, new_screen

PREVIOUS, NEXT = ("mediaplayer.prev", "previous", "key"), ("mediaplayer.next", "next", "key")
PLAY = ("mediaplayer.playpausetoggle", "play-pause", "prime")
REWIND, FORWARD = ("mediaplayer.rwnd", "rewind", "flat"), ("mediaplayer.ffwd", "forward", "flat")
LISTS = (("mediaplayer.switchlistmode", "list", "flat"), ("playlists.show", "playlist", "flat"),
         ("mediasearch.show", "search", "flat"))


def add_media_player(skin):
    form = new_screen(skin, "mediaplayer", "player")
    m, gap, small = form["margin"], form["tight_gap"], form["small"]
    edge = 8 if small else m
    area = Box(m, edge, form.width - 2 * m, form.height - form["bar"] - 2 * edge)
    body, sliders, transport = area.rows(["1*", form["slider"], form["key"]], gap)
    left, right = body.columns(["2*", "3*"], form["gap"])
    add_picture(form, left)
    well, column = right.columns(["1*", form["scroll"]], form["gap"])
    form.list_well("medialist", well, form["player_row"], ("list-folder", "", "**MEDIALISTCONTENT**"))
    add_scroll_column(form, column, ("scrollpageup", "scrollpagedown") if small else
                      ("scrollpageup", "scrollup", "scrolldown", "scrollpagedown"))
    add_sliders(form, sliders)
    add_transport(form, transport)


def add_picture(form, column):
    """The video or cover, and below it what plays."""
    texts = round((92 if form["small"] else 116) * form.scale)
    picture = Box(column.x, column.y, column.w, column.h - texts)
    form.sheet.rect(picture.x - 1, picture.y - 1, picture.w + 2, picture.h + 2, 0, form.theme["well_edge"])
    form.sheet.rect(*picture, 0, form.theme["well"])
    form.sheet.icon("player", picture.center, picture.middle, picture.h * .34, form.theme["line"])
    form.set("vis", {"posx": picture.x, "posy": picture.y, "width": picture.w, "height": picture.h})
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
    """Groups: playing, the list's chosen row, other lists. Wide screens seek by keys as well."""
    play = [PREVIOUS, REWIND, PLAY, FORWARD, NEXT] if form.width > 800 else [PREVIOUS, PLAY, NEXT]
    choose = [("mediaplayer.listselect", "set", "flat"), "shuffle", "add"]
    keys = [*play, None, *choose, None, *LISTS]
    cells = row.columns(["1*" if key else form["group"] for key in keys], form["key_gap"])
    for cell, key in zip(cells, keys):
        if key == "shuffle":
            form.pair(cell, ("mediaplayer.mode.shuffle", "shuffle", False),
                      ("mediaplayer.mode.repeat", "shuffle", True))
        elif key == "add":
            form.pair(cell, ("mediaplayer.add2playlist", "playlist-add", False),
                      ("mediaplayer.removefromplaylist", "playlist-remove", False))
        elif key:
            command, icon, kind = key
            form.key(cell, command, icon, 34 if kind == "flat" else 36 if cell.w < 80 else 40, kind=kind)
