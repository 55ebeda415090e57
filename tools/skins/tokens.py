"""Colours, measures and type of the default skins. Everything that differs by size or by theme stands here."""

DAY = {
    "bg_top": "#20262B", "bg_bot": "#0F1214",
    "well": "#14181B", "well_alt": "#191E22", "well_edge": "#0A0C0E",
    "key_top": "#363E45", "key_bot": "#272D33", "key_hi": "#56616A", "key_lo": "#0A0C0E",
    "flat_top": "#262C31", "flat_bot": "#1F2429", "line": "#3A434A",
    "bar_top": "#2B3238", "bar_bot": "#171B1E",
    "text": "#F1F4F6", "dim": "#AEB8BF",
    "silver": "#CBD3D8", "silver_hi": "#F4F7F8", "silver_lo": "#7E8A92",
    "accent": "#FF9447", "accent_deep": "#84461B", "on_deep": "#FFFFFF",
    "press_top": "#E3E8EB", "press_bot": "#B4BEC5", "press_edge": "#FFFFFF", "press_ink": "#15191C",
    "call_top": "#2A7450", "call_bot": "#225F40", "hang_top": "#A8383B", "hang_bot": "#842A2D",
    "brush": ".026",
}
NIGHT = {
    "bg_top": "#0E0B09", "bg_bot": "#070504",
    "well": "#0A0806", "well_alt": "#0D0A08", "well_edge": "#030202",
    "key_top": "#1C1612", "key_bot": "#15110E", "key_hi": "#3D3026", "key_lo": "#020101",
    "flat_top": "#120E0B", "flat_bot": "#0F0C09", "line": "#251D16",
    "bar_top": "#16110D", "bar_bot": "#0A0806",
    "text": "#BF9D80", "dim": "#977B63",
    "silver": "#9A806A", "silver_hi": "#B3967C", "silver_lo": "#54443A",
    "accent": "#D0712B", "accent_deep": "#683716", "on_deep": "#CDAA8C",
    "press_top": "#9B8675", "press_bot": "#897564", "press_edge": "#B09883", "press_ink": "#050302",
    "call_top": "#1E3F2B", "call_bot": "#183323", "hang_top": "#57201C", "hang_bot": "#461915",
    "brush": ".014",
}
THEMES = {"day": DAY, "night": NIGHT}

# List icons belong to the program, not to a skin: one ink for day, night and the selected row.
LIST_ICON = "#BBA894"
LIST_ICON_SIZES = (20, 24, 28, 32, 40)
DIALOG_ICON_SIZES = (24, 28, 34, 44)  # on keys that no skin draws

# On the keys of the on-screen keyboard, which inks them itself.
KEY_ICONS = ("shift", "shift-lock", "backspace", "space", "set", "left", "right", "keyboard-top", "keyboard-bottom", "keyboard-hide")
KEY_ICON_SIZES = (25, 28, 36, 72)

# Pixels unless said otherwise. `scale` multiplies points and icons; `small` marks the one low screen that drops
# what does not fit. The bar's keys: `bar_key` wide, first one at `bar_margin`. `search`: heading, row, number of rows.
_W800 = {
    "scale": 1.0, "margin": 16, "gap": 12, "key_gap": 8, "radius": 12, "target": 76, "small": False,
    "bar": 88, "bar_key": 88, "bar_margin": 8, "key": 84, "slider": 52, "knob": 44,
    "scroll": 80, "row": 60, "player_row": 56, "list_icon": 28, "group": 2, "tight_gap": 8,
    "search": (58, 52, 4), "letter_gap": 6, "letter_radius": 10, "keyboard_key": 53, "clock_pt": 22,
    "position_pt": 25, "frequency_pt": 76, "speed_pt": 46, "place_pt": 14, "dash": 444,
    "title_chars": 16, "menu_title_chars": 16,
}
SIZES = {
    (800, 600): _W800,
    (800, 480): _W800 | {
        "margin": 12, "gap": 8, "bar": 84, "small": True, "key": 76, "slider": 44, "row": 50, "player_row": 50,
        "search": (52, 50, 3), "keyboard_key": 44,
        "position_pt": 24, "frequency_pt": 54, "place_pt": 20, "dash": 360, "menu_title_chars": 18,
    },
    (1024, 600): _W800 | {
        "bar_key": 112, "group": 12, "clock_pt": 24, "position_pt": 28, "speed_pt": 64, "place_pt": 22, "title_chars": 21, "menu_title_chars": 30,
    },
    (1280, 800): _W800 | {
        "scale": 4 / 3, "margin": 24, "gap": 16, "radius": 16, "target": 96,
        "bar": 112, "bar_key": 132, "bar_margin": 16, "key": 96, "slider": 68, "knob": 56,
        "scroll": 104, "row": 76, "player_row": 76, "list_icon": 32, "group": 24, "tight_gap": 16,
        "search": (76, 72, 4), "letter_gap": 8, "letter_radius": 14, "keyboard_key": 71, "clock_pt": 24,
        "position_pt": 28, "speed_pt": 64, "place_pt": 22, "dash": 592, "title_chars": 19, "menu_title_chars": 28,
    },
}

# The four cuts of the one typeface: name as a skin gives it, whether bold by style, weight for drawing.
FACES = {
    "regular": ("Roboto", False, 400),
    "bold": ("Roboto", True, 700),
    "medium": ("Roboto Medium", False, 500),
    "light": ("Roboto Light", False, 300),
}
CAPITAL = .711     # height of capitals, of the size in pixels
CAP_MIDDLE = .69   # from the top of a label down to the middle of its capitals
LINE = 1.32        # height of a line


def px(points):
    """Points at 96 dots an inch, as labels count them."""
    return points * 96 / 72


def skin_name(size, theme):
    return f"Dark&Silver {size[0]}x{size[1]}" + (" Night" if theme == "night" else "")


def luminance(color):
    """0..1, of "#RRGGBB"."""
    return relative_luminance(*(int(color[i:i + 2], 16) for i in (1, 3, 5)))


_LINEAR = [v / 12.92 if v <= .03928 else ((v + .055) / 1.055) ** 2.4 for v in (i / 255 for i in range(256))]


def relative_luminance(red, green, blue):
    """0..1, of channels 0..255."""
    return .2126 * _LINEAR[red] + .7152 * _LINEAR[green] + .0722 * _LINEAR[blue]


def contrast(one, other):
    high, low = sorted((luminance(one), luminance(other)), reverse=True)
    return (high + .05) / (low + .05)
