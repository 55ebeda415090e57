"""The message box."""

from layout import Box

from .common import draw_box_frame


def add_message_box(skin):
    scale = skin.measures["scale"]
    form = skin.form("messagebox", round(560 * scale), round(300 * scale))
    form.set_size()
    draw_box_frame(form)
    edge, gap = round(24 * scale), round(12 * scale)
    area = Box(edge, edge, form.width - 2 * edge, form.height - 2 * edge)
    text, keys = area.rows(["1*", round(84 * scale)], gap)
    # Beside the first two lines, which most messages do not exceed; there is room for five.
    form.mark("info", text.x + 32 * scale, text.y + 38 * scale, 56, "accent")
    left = text.x + round(80 * scale)
    form.place_label("text", "**MESSAGEBOXTEXT**", Box(left, text.y + 2, text.right - left, text.h + gap - 4), 17,
                     ground=("bar_top",))
    # Either both of these or the one below is shown.
    yes, no = keys.columns(["1*", "1*"], gap)
    form.key(yes, "messagebox.yes", "ok", 38, "yes", points=16, pair="answer")
    form.key(no, "messagebox.no", "close", 38, "no", points=16, pair="answer")
    middle = Box(round(keys.center - keys.w / 4), keys.y, round(keys.w / 2), keys.h)
    form.key(middle, "messagebox.ok", "ok", 38, "ok", points=16, pair="answer")
