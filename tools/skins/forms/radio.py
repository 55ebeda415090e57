"""The radio: tuning, nine stations, the number pad."""

from .common import new_screen

TUNING = (("radio.tune.down", "tune-down", "key"), ("radio.finetune.down", "left", "flat"), None,
          ("radio.finetune.up", "right", "flat"), ("radio.tune.up", "tune-up", "key"))
PAD = ("1", "2", "3", "mute", "4", "5", "6", "0", "7", "8", "9", "set")


def add_radio(skin):
    form = new_screen(skin, "radio")
    small, scale = form["small"], form.scale
    area = form.content()
    top, below = area.rows([92 if small else round(176 * scale), "1*"], form["gap"])
    add_tuning(form, top)
    # Below lies the tuner's own list of stations and the pad, each under a line of words.
    line = round((22 if small else 26) * scale)
    halves = below.columns(["1*", "1*"], round(24 * scale))
    middle = below.y + round((10 if small else 11) * scale)
    form.words("stations", halves[0].x + 2, middle, 13)
    form.words("hold", halves[0].right - 2, middle, 13, anchor="end", face="regular")
    form.words("frequency", halves[1].x + 2, middle, 13)
    stations, pad = (half._replace(y=half.y + line, h=half.h - line) for half in halves)
    for number, cell in enumerate(stations.cells(3, 3, form["key_gap"]), 1):
        form.key(cell, f"radio.station.{number}", caption=str(number), points=28)
    for cell, key in zip(pad.cells(4, 3, form["key_gap"]), PAD):
        if key == "mute":
            form.key(cell, "radio.mute", "mute", 34, kind="flat")
        elif key == "set":
            form.key(cell, "radio.frequency.set", "set", 34, kind="flat")
        else:
            form.key(cell, f"radio.frequency.{key}", caption=key, points=22, face="regular", kind="flat")


def add_tuning(form, well):
    scale, small = form.scale, form["small"]
    form.sheet.well(well)
    outer, inner = round(84 * scale), round(76 * scale)
    cells = well.inset(8 if small else round(12 * scale)).columns([outer, inner, "1*", inner, outer], 8)
    for cell, key in zip(cells, TUNING):
        if key:
            form.key(cell, key[0], key[1], 38, kind=key[2])
    value = cells[2]
    if small:
        # The unit beside the value; both together look centred.
        form.label("frequency", "**RADIOFREQUENCY**", value.x, value.middle, value.w / 2 + 70, form["frequency_pt"],
                   "text", "light", "right")
        form.words("mhz", value.center + 86, value.middle + 17, 15)
    else:
        form.label("frequency", "**RADIOFREQUENCY**", value.x, well.y + well.h * .46, value.w, form["frequency_pt"],
                   "text", "light", "center")
        form.words("mhz", value.center, well.y + well.h * .82, 15, anchor="middle")
