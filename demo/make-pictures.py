#!/usr/bin/python3
"""Makes the sample pictures: landscapes of the same hills by several lights, computed.

    make-pictures.py FOLDER

Needs rsvg-convert and ffmpeg."""

import math
import os
import random
import subprocess
import sys
import tempfile

# Name, size, colours of the sky from top to horizon, of the sun and its place, of the hills from far to near.
PICTURES = (
    ("01 Dawn", (1600, 1200), ("#22304A", "#C9705A", "#F6C28B"), ("#FFE9B8", .68, .52), ("#9A5B58", "#63424F", "#33273A")),
    ("02 Morning", (1600, 1200), ("#6FA3C8", "#C7DDE2", "#F3E6C8"), ("#FFFBE6", .30, .25), ("#86A5A8", "#557A6C", "#2C4A3C")),
    ("03 Noon", (1600, 1000), ("#2F78B7", "#86BCE0", "#DDEFF5"), ("#FFFFFF", .55, .14), ("#7C9AA8", "#6E8F4E", "#46682F")),
    ("04 Rain", (1600, 1200), ("#3D4853", "#66737D", "#9AA5A9"), ("#AEB8BC", .45, .30), ("#67757C", "#48575C", "#2A3538")),
    ("05 Dusk", (1200, 1600), ("#1B1B3A", "#7A3B6A", "#F08A5D"), ("#FFD08A", .40, .58), ("#6B3A5E", "#40284A", "#1E1730")),
    ("06 Night", (1600, 1200), ("#05070F", "#101A30", "#23324F"), ("#E8ECF2", .74, .20), ("#1C2842", "#121A2C", "#090D17")),
)


def ridge(chance, width, level, height):
    """A line of hills across the picture, as the path of what lies below it."""
    waves = [(chance.uniform(.6, 1.4) * k, chance.uniform(0, 6.3), height / k) for k in (1, 2.3, 5.1, 11.7)]
    points = []
    for i in range(161):
        x = i / 160
        y = level - sum(size * math.sin(6.28 * rate * x + shift) for rate, shift, size in waves)
        points.append(f"{x * width:.0f} {y:.0f}")
    return "M" + "L".join(points)


def landscape(name, size, sky, sun, hills):
    width, height = size
    chance = random.Random(name)
    color, across, down = sun
    stops = "".join(f'<stop offset="{i / 2}" stop-color="{c}"/>' for i, c in enumerate(sky))
    parts = [f'<defs><linearGradient id="sky" x2="0" y2=".75">{stops}</linearGradient></defs>',
             f'<rect width="{width}" height="{height}" fill="url(#sky)"/>']
    if name.endswith("Night"):
        parts += [f'<circle cx="{chance.random() * width:.0f}" cy="{chance.random() * height * .6:.0f}" '
                  f'r="{chance.uniform(.8, 2.4):.1f}" fill="#fff" opacity="{chance.uniform(.3, .9):.2f}"/>' for _ in range(160)]
    for grow, opacity in ((2.6, .10), (1.7, .16), (1, 1)):
        parts.append(f'<circle cx="{across * width:.0f}" cy="{down * height:.0f}" r="{.055 * height * grow:.0f}" '
                     f'fill="{color}" opacity="{opacity}"/>')
    for i, fill in enumerate(hills):
        line = ridge(chance, width, height * (.60 + .14 * i), height * (.07 - .015 * i))
        parts.append(f'<path d="{line}V{height}H0Z" fill="{fill}"/>')
    if name.endswith("Rain"):
        for _ in range(420):
            x, y = chance.random() * width, chance.random() * height
            parts.append(f'<path d="M{x:.0f} {y:.0f}l-8 34" stroke="#C8D0D4" stroke-width="1.5" opacity=".35"/>')
    return f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}">{"".join(parts)}</svg>'


def main(folder):
    os.makedirs(folder, exist_ok=True)
    with tempfile.TemporaryDirectory() as work:
        drawn = os.path.join(work, "drawn.png")
        for name, *description in PICTURES:
            svg = landscape(name, *description)
            subprocess.run(["rsvg-convert", "-o", drawn], input=svg.encode(), check=True)
            subprocess.run(["ffmpeg", "-nostdin", "-hide_banner", "-loglevel", "error", "-y", "-i", drawn, "-q:v", "4",
                            os.path.join(folder, name + ".jpg")], check=True)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
