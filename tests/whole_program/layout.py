"""Where the controls of the window stand."""

from captions import BUTTON, HEADING, OPTIONS

# The client area, in twips.
WIDTH, HEIGHT = 5652, 2952

# Left, top, width and height in twips, by caption. The result box has no caption at the start.
PLACES = {
    HEADING: (240, 120, 5172, 372),
    "": (240, 720, 5172, 612),
    OPTIONS[0]: (480, 1560, 1572, 372),
    OPTIONS[1]: (480, 1920, 1572, 372),
    OPTIONS[2]: (3720, 1560, 1572, 372),
    OPTIONS[3]: (3720, 1920, 1572, 372),
    BUTTON: (120, 2400, 5292, 492),
}
