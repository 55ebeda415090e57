"""Playlists, gallery and DVD."""

from skindata import place

from .common import SCROLL_KEYS, add_box_with_keyboard, add_list, add_list_with_keys, add_pair, new_screen


def add_playlists(skin):
    form = new_screen(skin, "playlists")
    gap = form["key_gap"]
    right = add_list_with_keys(form, form.content(), "playlistlist", ("playlist", "playlists", ""))
    name, load, second, third = right.rows([form["target"], "1.1*", "1*", "1*"], gap)
    add_box_with_keyboard(form, name, "namebox", 18)
    form.key(load, "playlists.loadselectedplaylist", "play", 44, "load", "prime", 16, name="load")
    for row, keys in ((second, (("new", "plus", "key"), ("rename", "rename", "key"))),
                      (third, (("empty", "clear", "flat"), ("delete", "delete", "flat")))):
        for cell, (word, icon, kind) in zip(row.columns(["1*", "1*"], gap), keys):
            form.key(cell, "playlists." + word, icon, 38, word, kind)


def add_gallery(skin):
    form = new_screen(skin, "gallery")
    list_width = round(296 * form.scale)
    well, right = form.content().columns([list_width, "1*"], form["gap"])
    add_list(form, "imglist", well, form["row"], ("list-folder", "", "**CURRENTGALLERYFOLDER**"))
    picture, keys = right.rows(["1*", form["key"]], form["gap"])
    form.sheet.well(picture)
    inside = picture.inset(8)
    empty = skin.sheet(inside.w, inside.h)
    empty.rect(0, 0, inside.w, inside.h, 0, form.theme["well"])
    empty.icon("gallery", inside.w / 2, inside.h / 2, 80 * form.scale, form.theme["line"])
    form.set("imgdisplay/preview", {**place(inside), "background-color": form.theme["well"],
                                    "background-image": skin.picture("gallery-empty", empty)})
    form.set("imgdisplay/fullscreen", {"background-color": form.theme["well_edge"]})
    # Five keys fit on a narrow screen; the list itself moves by finger there.
    scrolls = ["scrollup", "scrolldown"] if form.width == 800 else list(SCROLL_KEYS)
    names = [*scrolls, "listselect", "imagefolder", "slideshow"]
    icons = {**SCROLL_KEYS, "listselect": "gallery", "imagefolder": "open-folder"}
    for cell, name in zip(keys.columns(["1*"] * len(names), form["key_gap"]), names):
        if name == "slideshow":
            add_pair(form, cell, name, 36, "prime")
        else:
            form.key(cell, "gallery." + name, icons[name], 36, kind="flat")


DVD_SIDE = (("dvdplayer.menu", "menu", "flat"), ("dvdplayer.zoomin", "zoom-in", "flat"),
            ("dvdplayer.zoomout", "zoom-out", "flat"), ("dvdplayer.eject", "eject", "flat"))
DVD_KEYS = (("dvdplayer.prevchapter", "previous", "key"), ("dvdplayer.rwnd", "rewind", "flat"),
            ("dvdplayer.play", "play", "prime"), ("dvdplayer.pause", "pause", "key"), ("dvdplayer.stop", "stop", "flat"),
            ("dvdplayer.ffwd", "forward", "flat"), ("dvdplayer.nextchapter", "next", "key"),
            ("mediaplayer.loadaudiocd", "disc-audio", "flat"))


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
    form.set("dvdcontent", {**place(video), "logo": skin.picture("dvd-fullscreen", touch)})
    # A low screen has room for three keys beside the picture; there the last one stands in the row below.
    beside, in_row = (DVD_SIDE[:3], DVD_KEYS + DVD_SIDE[3:]) if form["small"] else (DVD_SIDE, DVD_KEYS)
    for cells, faces in ((side.rows(["1*"] * len(beside), form["key_gap"]), beside),
                         (keys.columns(["1*"] * len(in_row), form["key_gap"]), in_row)):
        for cell, (command, icon, kind) in zip(cells, faces):
            form.key(cell, command, icon, 36 if kind == "flat" else 40, kind=kind)
