"""From SVG to PNG. One drawing is rasterised once, however many files show it."""

import os
import subprocess


class Rasterizer:
    def __init__(self):
        self.drawn = {}    # SVG -> first file made of it
        self.calls = 0

    def write(self, svg, path):
        """Raises subprocess.CalledProcessError when the drawing cannot be read."""
        made = self.drawn.setdefault(svg, path)
        if made == path:
            subprocess.run(["rsvg-convert", "-o", path], input=svg.encode(), check=True)
            self.calls += 1
            return
        with open(made, "rb") as source, open(path, "wb") as target:
            target.write(source.read())


def remove_strangers(folder, keep):
    """Files of an earlier drawing would stay for ever."""
    for name in os.listdir(folder):
        if name not in keep:
            os.remove(os.path.join(folder, name))
