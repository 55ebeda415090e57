"""Rows and columns: how one description of a screen fills screens of several sizes."""

from typing import NamedTuple


def spread(total, parts, gap):
    """Lays parts one after another: [(start, length)]. A part is a number of pixels, or "1*" for a share of the rest.
    Every edge is rounded once, so that all gaps are exact."""
    fixed = sum(p for p in parts if not isinstance(p, str))
    shares = sum(float(p[:-1]) for p in parts if isinstance(p, str))
    rest = total - fixed - gap * (len(parts) - 1)
    placed, at = [], 0.0
    for part in parts:
        length = float(part[:-1]) * rest / shares if isinstance(part, str) else part
        start, end = int(at + .5), int(at + length + .5)
        placed.append((start, end - start))
        at += length + gap
    return placed


class Box(NamedTuple):
    """A rectangle of whole pixels."""
    x: int
    y: int
    w: int
    h: int

    @property
    def right(self):
        return self.x + self.w

    @property
    def bottom(self):
        return self.y + self.h

    @property
    def middle(self):
        return self.y + self.h / 2

    @property
    def center(self):
        return self.x + self.w / 2

    def rows(self, parts, gap):
        return [Box(self.x, self.y + start, self.w, length) for start, length in spread(self.h, parts, gap)]

    def columns(self, parts, gap):
        return [Box(self.x + start, self.y, length, self.h) for start, length in spread(self.w, parts, gap)]

    def cells(self, across, down, gap):
        """Equal cells, row by row."""
        return [cell for row in self.rows(["1*"] * down, gap) for cell in row.columns(["1*"] * across, gap)]

    def inset(self, by):
        return Box(self.x + by, self.y + by, self.w - 2 * by, self.h - 2 * by)

    def to(self, last):
        """From this box to the right and lower edge of another."""
        return Box(self.x, self.y, last.right - self.x, last.bottom - self.y)
