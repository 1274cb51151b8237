"""Pictures of a part of the screen."""

import copy
import re
import subprocess

from screen import wait_for


class Picture:
    """A part of the screen as rows of (red, green, blue)."""

    def __init__(self, left, top, right, bottom):
        area = f"{right - left}x{bottom - top}+{left}+{top}"
        data = subprocess.run(
            ["import", "-window", "root", "-crop", area, "-depth", "8", "ppm:-"],
            check=True, capture_output=True,
        ).stdout
        size = re.match(rb"P6\s(\d+)\s(\d+)\s255\s", data)
        width, pixels = int(size[1]), data[size.end():]
        points = [tuple(pixels[i:i + 3]) for i in range(0, len(pixels), 3)]
        self.rows = [points[i:i + width] for i in range(0, len(points), width)]

    def edges(self):
        """The sets of colours along the left, top, right and bottom edge."""
        left, right = ({row[side] for row in self.rows} for side in (0, -1))
        return left, set(self.rows[0]), right, set(self.rows[-1])

    def without_edges(self):
        inside = copy.copy(self)
        inside.rows = [row[1:-1] for row in self.rows[1:-1]]
        return inside

    def ink(self):
        """The left and the right end of what is drawn, and the width of the picture. Whatever
        differs from the pixel at the left edge of its row counts as drawn."""
        columns = [any(row[x] != row[0] for row in self.rows) for x in range(len(self.rows[0]))]
        return columns.index(True), len(columns) - columns[::-1].index(True), len(columns)

    def colors(self):
        return {point for row in self.rows for point in row}

    def sign(self):
        """The colour of a stop or warning sign, "red" or "yellow"; None where there is none."""
        red, green, blue = max(self.colors(), key=lambda color: color[0] - color[2])
        if red - blue < 128:
            return None
        return "yellow" if green > red / 3 else "red"


def finished_picture(place, what):
    """The picture of a place, as soon as something is painted there and stays the same."""

    def look():
        first, second = Picture(*place), Picture(*place)
        return second if first.rows == second.rows and len(second.colors()) > 1 else None

    return wait_for(look, what)
