"""The phone, and the box for text messages that stands over it."""

from layout import Box

from .common import add_box_with_keyboard, add_list_with_keys, draw_box_frame, new_screen

ACTIONS = (("phone.dial", "dial", "dial"), ("phone.getphonebook", "phone-book", "book"),
           ("phone.sendsms", "message", "write"), ("phone.readsms", "message-read", "read"))


PAD = ("1", "2", "3", "4", "5", "6", "7", "8", "9", "+", "0", "back")


def add_phone(skin):
    form = new_screen(skin, "phone")
    gap = form["key_gap"]
    state, below = form.content().rows([round((30 if form["small"] else 36) * form.scale), "1*"], form["gap"])
    add_state(form, state)
    wide = form.width >= 1000
    if not wide:
        right = add_list_with_keys(form, below, "phonebooklist", None)
        number, actions = right.rows([form["target"], "1*"], gap)
    else:
        right = add_list_with_keys(form, below, "phonebooklist", None, .44)
        number, keys = right.rows([form["target"], "1*"], gap)
        pad, actions = keys.columns([3 * form["scroll"] + 2 * gap, "1*"], form["gap"])
        add_pad(form, pad)
    add_box_with_keyboard(form, number, "numberbox", 22 if wide else 18, "right")
    add_actions(form, actions)


def add_pad(form, area):
    for cell, key in zip(area.cells(3, 4, form["key_gap"]), PAD):
        if key == "back":
            form.key(cell, "phone.text.back", "backspace", 34, kind="flat")
        else:
            form.key(cell, f"phone.text.{key}", caption=key, points=22, face="regular", kind="flat",
                     name="plus" if key == "+" else "digit-" + key)


def add_actions(form, area):
    gap = form["key_gap"]
    calls, *rows = area.rows(["1*" if form["small"] else "1.25*", "1*", "1*"], gap)
    accept, hang_up = calls.columns(["1*", "1*"], gap)
    form.key(accept, "phone.accept", "call", 52, kind="call")
    form.key(hang_up, "phone.hangup", "hang-up", 56, kind="hang")
    cells = [cell for row in rows for cell in row.columns(["1*", "1*"], gap)]
    for cell, (command, icon, caption) in zip(cells, ACTIONS):
        form.key(cell, command, icon, 38, caption, name=caption)


def add_state(form, row):
    """Signal, battery, unread messages, connection."""
    scale, x = form.scale, row.x + 4 * form.scale
    for name, icon, placeholder, room, color, face in (
            ("signal", "signal", "**PHONESIGNAL**", 60, "text", "medium"),
            ("battery", "battery", "**PHONEBATTERY**", 72, "text", "medium"),
            ("unread", "message", "**UNREADSMS**", 44, "accent", "bold")):
        form.mark(icon, x + 12 * scale, row.middle, 25)
        form.label(name, placeholder, x + 34 * scale, row.middle, room * scale, 16, color, face, ground=("bg_top",))
        x += (34 + room + 14) * scale
    width = 180 * scale
    form.label("connection", "**PHONESTATUS**", row.right - 4 - width, row.middle, width, 16, "dim", align="right",
               ground=("bg_top",))


def add_sms_box(skin):
    scale = skin.measures["scale"]
    form = skin.form("smsbox", round(640 * scale), min(round(432 * scale), skin.size[1]))
    form.set_size()
    draw_box_frame(form)
    edge, gap, key = round(24 * scale), round(12 * scale), round(92 * scale)
    area = Box(edge, edge, form.width - 2 * edge, form.height - 2 * edge)
    line = round(28 * scale) - gap
    number, text, count, keys = area.rows([round(60 * scale), "1*", line, key], gap)
    form.mark("message", edge + 20 * scale, number.middle, 36, "accent")
    number = Box(round(80 * scale), number.y, area.right - round(80 * scale), number.h)
    form.sheet.well(number)
    form.text_box("smsnumberbox", Box(number.x + 12, number.y + 6, number.w - 24, number.h - 12), 20)
    form.sheet.well(text)
    form.text_box("smstextbox", Box(text.x + 12, text.y + 10, text.w - 24, text.h - 20), 20, "regular")
    form.label("characters", "**SMSCHARS**", area.right - 104 * scale, count.middle, 100 * scale, 14, "dim", "medium",
               "right", ground=("bar_top",))
    for cell, (command, icon, caption, kind) in zip(
            keys.columns(["1*"] * 3, gap),
            (("externalapps.onscreenkeyboard", "keyboard", "keyboard", "flat"), ("smsbox.send", "ok", "send", "prime"),
             ("smsbox.close", "close", "close", "key"))):
        form.key(cell, command, icon, 38, caption, kind, 15, name=caption)
