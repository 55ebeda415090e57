"""Playlists, gallery and DVD."""

from layout import Box

from .common import SCROLL_KEYS, add_list_with_keys, new_screen


def add_playlists(skin):
    form = new_screen(skin, "playlists")
    gap = form["key_gap"]
    left, right = form.content().columns([round(500 * form.width / 800) - form["margin"], "1*"], form["gap"])
    add_list_with_keys(form, left, "playlistlist", ("playlist", "playlists", ""))
    name, first, second, third = right.rows([form["target"], "1.1*", "1*", "1*"], gap)
    form.sheet.well(name)
    form.text_box("namebox", Box(name.x + 10, name.y + 8, name.w - 20, name.h - 16), 20)
    load, keyboard = first.columns(["1.6*", "1*"], gap)
    form.key(load, "playlists.loadselectedplaylist", "play", 44, "load", "prime", 16, name="load")
    form.key(keyboard, "externalapps.onscreenkeyboard", "keyboard", 38, "keyboard", "flat", name="keyboard")
    for row, keys in ((second, (("new", "plus", "key"), ("rename", "rename", "key"))),
                      (third, (("empty", "clear", "flat"), ("delete", "delete", "flat")))):
        for cell, (word, icon, kind) in zip(row.columns(["1*", "1*"], gap), keys):
            form.key(cell, "playlists." + word, icon, 38, word, kind)


def add_gallery(skin):
    form = new_screen(skin, "gallery")
    list_width = round(296 * form.scale) if form.width < 1280 else 396
    well, right = form.content().columns([list_width, "1*"], form["gap"])
    form.list_well("imglist", well, form["row"], ("list-folder", "", "**CURRENTGALLERYFOLDER**"))
    picture, keys = right.rows(["1*", form["key"]], form["gap"])
    form.sheet.well(picture)
    inside = picture.inset(8)
    form.mark("gallery", inside.center, inside.middle, 80, "line")
    form.set("imgdisplay/preview", {"posx": inside.x, "posy": inside.y, "width": inside.w, "height": inside.h,
                                    "background-color": form.theme["well"]})
    form.set("imgdisplay/fullscreen", {"background-color": form.theme["well_edge"]})
    # Five keys fit on a narrow screen; the list itself moves by finger there.
    scrolls = ["scrollup", "scrolldown"] if form.width == 800 else list(SCROLL_KEYS)
    names = [*scrolls, "listselect", "imagefolder", "slideshow"]
    for cell, name in zip(keys.columns(["1*"] * len(names), form["key_gap"]), names):
        if name == "slideshow":
            form.pair(cell, ("gallery.slideshowon", "slideshow", False),
                      ("gallery.slideshowoff", "slideshow", True), 36)
        elif name == "listselect":
            form.key(cell, "gallery.listselect", "gallery", 36, kind="prime")
        else:
            form.key(cell, "gallery." + name, SCROLL_KEYS.get(name, "open-folder"), 36, kind="flat")


DVD_SIDE = (("menu", "menu", "flat"), ("zoomin", "zoom-in", "flat"), ("zoomout", "zoom-out", "flat"),
            ("eject", "eject", "flat"))
DVD_KEYS = (("prevchapter", "previous", "key"), ("rwnd", "rewind", "flat"), ("play", "play", "prime"),
            ("pause", "pause", "key"), ("stop", "stop", "flat"), ("ffwd", "forward", "flat"),
            ("nextchapter", "next", "key"))


def add_dvd_player(skin):
    form = new_screen(skin, "dvdplayer")
    above, keys = form.content().rows(["1*", form["key"]], form["gap"])
    video, side = above.columns(["1*", form["scroll"]], form["gap"])
    form.sheet.rect(video.x - 1, video.y - 1, video.w + 2, video.h + 2, 0, form.theme["well_edge"])
    form.sheet.rect(*video, 0, form.theme["well"])
    form.sheet.icon("disc", video.center, video.middle, video.h * .30, form.theme["line"])
    w, h = form["scroll"], form["target"]
    touch = skin.sheet(w, h)
    touch.rect(0, 0, w, h, 0, form.theme["well"])
    touch.rect(.5, .5, w - 1, h - 1, 0, "none", f'stroke="{form.theme["line"]}"')
    touch.icon("fullscreen", w / 2, h / 2, 34 * form.scale, form.theme["silver"])
    form.set("dvdcontent", {"posx": video.x, "posy": video.y, "width": video.w, "height": video.h,
                            "logo": skin.picture("dvd-fullscreen", touch)})
    # A low screen has room for three keys beside the picture; there the last one stands in the row below.
    beside, in_row = (DVD_SIDE[:3], DVD_KEYS + DVD_SIDE[3:]) if form["small"] else (DVD_SIDE, DVD_KEYS)
    for cells, faces in ((side.rows(["1*"] * len(beside), form["key_gap"]), beside),
                         (keys.columns(["1*"] * len(in_row), form["key_gap"]), in_row)):
        for cell, (word, icon, kind) in zip(cells, faces):
            form.key(cell, "dvdplayer." + word, icon, 36 if kind == "flat" else 40, kind=kind)
