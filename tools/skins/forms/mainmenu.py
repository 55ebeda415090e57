"""The main menu: what plays now, and the ways to everything else."""

from layout import Box

from .common import add_pair, new_screen

TILES = (("mediaplayer.show", "player", "media"), ("radio.show", "radio", "radio"), ("phone.show", "phone", "phone"),
         ("externalapps.navigation", "navigation", "navigation"), ("gps.show", "gauge", "gps"))
QUIET_TILES = (("dvdplayer.show", "disc", "dvd"), ("gallery.show", "gallery", "gallery"),
               ("externalapps.show", "programs", "programs"), ("app.showquickjumpmenu", "menu", "jump"), "night",
               ("app.exit", "power", "exit"))


def add_main_menu(skin):
    form = new_screen(skin, "mainmenu", "home")
    top, middle, bottom = form.content().rows(["1.04*", "1.34*", "1*"], form["gap"])
    quiet_icon = 38 / form.scale if bottom.h <= 110 else 50
    columns = top.columns(["1*"] * len(TILES), form["gap"])
    add_now_playing(form, columns[0].to(columns[3]))
    form.key(columns[4], "app.options", "settings", quiet_icon, "settings", "flat")
    for cell, (command, icon, caption) in zip(middle.columns(["1*"] * len(TILES), form["gap"]), TILES):
        form.key(cell, command, icon, min(72, middle.h * .40 / form.scale), caption, points=17)
    for cell, tile in zip(bottom.columns(["1*"] * len(QUIET_TILES), form["gap"]), QUIET_TILES):
        if tile == "night":
            add_pair(form, cell, "night", quiet_icon, captioned=True)
        else:
            command, icon, caption = tile
            form.key(cell, command, icon, quiet_icon, caption, "flat")


def add_now_playing(form, well):
    sheet, theme, scale = form.sheet, form.theme, form.scale
    sheet.well(well)
    side = well.h - 24
    plate = Box(well.x + 12, well.y + 12, side, side)
    sheet.rect(plate.x, plate.y, side, side, 8, "url(#flat)")
    sheet.rect(plate.x + .5, plate.y + .5, side - 1, side - 1, 7.5, "none", f'stroke="{theme["line"]}"')
    sheet.icon("player", plate.center, plate.middle, side * .46, theme["silver_lo"])
    form.set("user-pic", {"allow": "yes", "center-x": round(plate.center), "center-y": round(plate.middle)})

    width = 88 if scale == 1 else 112
    height = min(width, well.h - 24)
    keys = Box(well.right - 12 - 2 * width - 8, round(well.middle - height / 2), 2 * width + 8, height)
    play, following = keys.columns([width, width], 8)
    add_pair(form, play, "play", 40, "prime")
    form.key(following, "mediaplayer.next", "next", 40)
    x = plate.right + 20
    room = keys.x - 12 - x
    form.label("title", "**MEDIATITLE**", x, well.middle - 18 * scale, room, 22, "text", "bold",
               characters=form["menu_title_chars"])
    form.label("position", "**MEDIAPOSITION**", x, well.middle + 22 * scale, room, 18, "dim")
