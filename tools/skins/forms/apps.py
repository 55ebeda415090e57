"""The list of programs, and the two bars that stand over a running program."""

from layout import Box

from .common import add_list_with_keys, new_screen

PAIRS = ((("externalapps.switchtorunningapp", "task-switch", "switch", "key"),
          ("externalapps.navigation", "navigation", "route", "key")),
         (("externalapps.onscreenkeyboard", "keyboard", "keyboard", "flat"),
          ("app.showquickjumpmenu", "menu", "jump", "flat")))


def add_external_apps(skin):
    form = new_screen(skin, "externalapps")
    gap = form["key_gap"]
    right = add_list_with_keys(form, form.content(), "applist", ("programs", "programs", ""))
    first, *rest = right.rows(["1.2*", "1*", "1*"], gap)
    form.key(first, "externalapps.listselect", "play", 48, "start", "prime", 17, name="start")
    for row, pair in zip(rest, PAIRS):
        for cell, (command, icon, caption, kind) in zip(row.columns(["1*", "1*"], gap), pair):
            form.key(cell, command, icon, 42, caption, kind, name=caption)


DOCKED_KEYS = (("externalapps.backtomainmenu", "home"), ("externalapps.taskswitch", "task-switch"),
               ("mediaplayer.prev", "previous"), ("mediaplayer.playpausetoggle", "play-pause"),
               ("mediaplayer.next", "next"))


def add_docked_bar(skin):
    """Along the top edge of the screen; as the bar of the screens, with a volume rocker at the right."""
    k = skin.measures
    form = skin.form("quickbardocked", skin.size[0], round(88 * k["scale"]))
    form.special["height"] = form.height
    sheet, theme, gap, w, h = form.sheet, form.theme, k["key_gap"], k["bar_key"], k["target"]
    sheet.brushed(0, 0, form.width, form.height)
    sheet.rect(0, form.height - 2, form.width, 2, 0, "url(#hair)")
    y, icon = (form.height - 2 - h) // 2, h * .52 / form.scale
    x = k["bar_margin"]
    for command, name in DOCKED_KEYS:
        form.key(Box(x, y, w, h), command, name, icon, kind="bar", name="bar-" + name)
        x += w + gap
    well = Box(form.width - k["bar_margin"] - 2 * w - gap, y, 2 * w + gap, h)
    sheet.well(well)
    sheet.rect(well.center - .5, y + 14, 1, h - 28, 0, theme["line"])
    for cell, command, name in zip(well.columns([w, w], gap), ("app.volumedown", "app.volumeup"), ("minus", "plus")):
        form.key(cell, command, name, icon, kind="bar", name="bar-" + name)
    form.label("bar-clock", "**TIME_SHORT**", x - gap, well.middle, well.x - x + gap, 20, "text", "medium", "center",
               ground=("bar_top",))


FLOATING_KEYS = (("externalapps.backtomainmenu", "home", "key"), ("externalapps.taskswitch", "task-switch", "key"),
                 ("app.volumeup", "vol-up", "flat"), ("mediaplayer.playpausetoggle", "play-pause", "prime"),
                 ("mediaplayer.next", "next", "key"), ("app.volumedown", "vol-down", "flat"))


def add_floating_bar(skin):
    """Six keys in a frame that the finger drags it by."""
    scale = skin.measures["scale"]
    form = skin.form("quickbarfloating", round(282 * scale), round(180 * scale))
    form.set_size()
    sheet, theme, w, h = form.sheet, form.theme, form.width, form.height
    for inset, fill in ((0, theme["key_lo"]), (1, theme["silver_lo"]), (2, "url(#bar)")):
        sheet.rect(inset, inset, w - 2 * inset, h - 2 * inset, 0, fill)
    area = Box(0, 0, w, h).inset(round(10 * scale))
    for cell, (command, icon, kind) in zip(area.cells(3, 2, 8), FLOATING_KEYS):
        form.key(cell, command, icon, 36, kind=kind)
