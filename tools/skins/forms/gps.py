"""The dash and the receiver's values."""

import math

from layout import Box
from skindata import place
from tokens import CAPITAL, px

from .common import add_pair, new_screen

OFFSET, STEP, TOP_SPEED = 135, 1.125, 240    # degrees at rest, degrees for each unit, end of the scale
VALUES = (("position", "position", "**GPS_POSITION**"), ("altitude", "altitude", "**GPS_ALTITUDE**"),
          ("satellites", "satellite", "**GPS_SATNUM**"))


def add_gps(skin):
    form = new_screen(skin, "gps")
    small, scale, side = form["small"], form.scale, form["dash"]
    area = form.content()
    add_dash(form, Box(area.x, area.y + (area.h - side) // 2, side, side))
    x = area.x + side + round(20 * scale)
    right = Box(x, area.y, area.right - x, area.h)
    speed, values, keys = right.rows([100 if small else round(140 * scale), "1*", 76 if small else round(88 * scale)],
                                     form["gap"])
    form.sheet.well(speed)
    form.label("speed", "**GPS_SPEED**", speed.x, speed.middle, speed.w, form["speed_pt"], "text", "light", "center")
    add_values(form, values)
    route, night = keys.columns(["1*", "1*"], 8)
    form.key(route, "externalapps.navigation", "navigation", 34, "route", "flat")
    add_pair(form, night, "night", captioned=True)


def add_values(form, well):
    scale = form.scale
    form.sheet.well(well)
    for i, (row, (name, icon, placeholder)) in enumerate(zip(well.rows(["1*"] * 3, 0), VALUES)):
        form.mark(icon, row.x + 32 * scale, row.middle, 32)
        points = form["place_pt"] if name == "position" else 24
        width = 128 * scale if name == "altitude" else row.w - 74 * scale
        form.label(name, placeholder, row.x + 62 * scale, row.middle, width, points, "text", "medium")
        if name == "altitude":
            form.words("meters", row.x + 196 * scale, row.middle + 3 * scale, 18)
        if i:
            form.sheet.rule(row.x + 16, row.y, row.w - 32, True)


def add_dash(form, box):
    """Two pictures: the face without a needle, and what the needle's line and the hub's circle are cut from."""
    skin, theme = form.skin, form.theme
    hub = round(box.w * .135)
    length = round(box.w / 2 - 22 * box.w / 444)
    face = skin.sheet(box.w, box.h, (box.x, box.y))
    face.page(form.width, form.height)
    draw_face(face, box, theme)
    draw_hub(face, box, hub, theme)
    needle = skin.sheet(box.w, box.h, (box.x, box.y))
    needle.rect(*box, 0, theme["accent"])
    draw_hub(needle, box, hub, theme)
    form.set("dash", {**place(box), "background-image": skin.picture("dash", face),
                      "needle": {"background-image": skin.picture("dash-needle", needle), "length": length,
                                 "center-size": hub, "offset": OFFSET, "stepping": round(STEP * 1000)}})


def draw_face(sheet, box, theme):
    x, y, radius, unit = box.center, box.middle, box.w / 2, box.w / 444

    def at(distance, degrees):
        return x + distance * math.cos(math.radians(degrees)), y + distance * math.sin(math.radians(degrees))

    for less, fill in ((1, theme["key_lo"]), (4, "url(#rim)"), (8, theme["key_lo"]), (9, "url(#face)")):
        sheet.circle(x, y, radius - less, fill)
    for speed in range(0, TOP_SPEED + 1, 5):
        degrees = OFFSET + speed * STEP
        major = speed % 20 == 0
        outer = at(radius - 20 * unit, degrees)
        inner = at(radius - (46 if major else 34 if speed % 10 == 0 else 27) * unit, degrees)
        sheet.add(f'<path d="M{inner[0]:.2f} {inner[1]:.2f}L{outer[0]:.2f} {outer[1]:.2f}" '
                  f'stroke="{theme["silver_hi"] if major else theme["silver_lo"]}" '
                  f'stroke-width="{(4 if major else 2) * max(unit, .9):.1f}"/>')
        if major:
            points = round(19 * unit)
            place = at(radius - 72 * unit, degrees)
            sheet.text(place[0], place[1] + px(points) * CAPITAL / 2, str(speed), points, theme["text"], 500, "middle")


def draw_hub(sheet, box, hub, theme):
    # A dark ring a little wider than the circle that is cut out hides its hard edge.
    x, y = box.center, box.middle
    sheet.circle(x, y, hub + 2, theme["key_lo"])
    sheet.circle(x, y, hub - 1.5, "url(#rim)")
    sheet.circle(x, y, hub - 5, "url(#key)")
    sheet.circle(x, y, hub * .56, theme["key_lo"])
    sheet.circle(x, y + 1, hub * .56, "none", f'stroke="{theme["key_hi"]}" stroke-width="1"')
    sheet.circle(x, y, hub * .56 - 1, "url(#face)")
