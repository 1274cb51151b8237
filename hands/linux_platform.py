"""Linux: the window on devices that the test names. Environment variables, and a file that they
name, stand for the settings of the desktop."""

import pathlib
import tempfile

import linux_refusals
from linux_user import User

# What the toolkit takes for the user's settings: a font and colours. It takes no colours from a
# file that lacks the one of buttons. The background of the result box is the colour of selected
# text.
FONT = """[General]
font=DejaVu Sans,{points},-1,5,50,0,0,0,0,0
"""
COLORS = """[Colors:Button]
BackgroundNormal=200,200,200
[Colors:Window]
BackgroundNormal=200,200,200
ForegroundNormal={text}
[Colors:Selection]
ForegroundNormal={background}
"""


class Linux:
    densities = [{"density": density} for density in (96, 120, 144, 192)]
    densities += [{"density": 96, "font": 20}, {"density": 192, "font": 20}]
    holds = [({}, User.open_menu), ({}, User.open_menu_of_result), ({}, User.press_title_bar),
             ({}, User.hold_title_bar)]
    write_refusal = linux_refusals.WRITE_REFUSAL

    def __init__(self, program):
        self.program = program
        self.folder = tempfile.TemporaryDirectory()
        self.variables = {}

    def close(self):
        self.folder.cleanup()

    def user(self, *devices):
        """A user of the window with the devices behind Serial Port 1 and on; None is no device."""
        devices = [device or "/dev/none" for device in devices]
        return User([self.program, *devices], **self.variables)

    def set_up(self, density=96, font=None, colors=()):
        """Sets the density, the points of the user's font, and the colours of the background of the
        result box and of text."""
        self.variables = {"QT_FONT_DPI": str(density), "QT_ENABLE_HIGHDPI_SCALING": "0"}
        settings = FONT.format(points=font) if font else ""
        if colors:
            background, text = (",".join(map(str, color)) for color in colors)
            settings += COLORS.format(background=background, text=text)
        if settings:
            pathlib.Path(self.folder.name, "kdeglobals").write_text(settings)
            self.variables.update(XDG_CONFIG_HOME=self.folder.name, XDG_CURRENT_DESKTOP="KDE",
                                  KDE_SESSION_VERSION="5")

    def tooltip(self, device):
        """That of a choice with the device behind it."""
        return device

    def refusals(self, device):
        rows, holder = linux_refusals.refusals(device)
        return [([], "There is no serial port 1 on this computer"), *rows], holder
