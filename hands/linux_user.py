"""A user of the program on Linux. The user sees its windows through the accessible tree of the
desktop, as a screen reader does."""

import os
import subprocess

import pyatspi
from gi.repository import GLib

from any_user import AnyUser, Box
from screen import xdotool

WINDOW = "Zendor Serial Number Extractor V"


def descendants(element):
    for child in element:
        if child is not None:
            yield child
            yield from descendants(child)


def has_state(element, state):
    return element.getState().contains(state)


def place_of(element):
    """Left, top, right and bottom on the screen."""
    box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return box.x, box.y, box.x + box.width, box.y + box.height


class User(AnyUser):
    """Starts the program and uses its window."""

    def __init__(self, command, **variables):
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **variables)
        super().__init__(subprocess.Popen(command, env=environment), os.path.basename(command[0]))
        self.window = None

    def wait_for_window(self):
        self.window = self.wait_for(self._window, "The window")

    def wait_for(self, look, what, seconds=20.0):
        """Looks again when an element goes away while it is looked at."""

        def look_again():
            try:
                return look()
            except GLib.Error:
                return None

        return super().wait_for(look_again, what, seconds)

    def _top_levels(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                yield from (child for child in application if child is not None)

    def _window(self):
        return next((w for w in self._top_levels() if w.name.startswith(WINDOW)), None)

    def find(self, name):
        def look():
            if self.process.poll() is not None:
                raise StopIteration(f'The program has ended without "{name}"')
            return next((e for e in descendants(self.window) if e.name == name), None)

        return self.wait_for(look, f'"{name}"')

    def controls(self):
        """All elements of the window but those that only group others."""
        return [e for e in descendants(self.window) if e.getRole() != pyatspi.ROLE_FILLER]

    def title(self):
        return self.window.name

    def place(self, caption):
        return place_of(self.find(caption))

    def client_place(self):
        left, _, right, bottom = place_of(self.window)
        return left, self.menu_bar()[3], right, bottom

    def menu_bar(self):
        return place_of(self.controls()[0])

    def result_box(self):
        return next(e for e in self.controls() if e.getRole() == pyatspi.ROLE_NOTIFICATION)

    def result_place(self):
        return place_of(self.result_box())

    def result(self):
        return self.result_box().name

    def find_box(self):
        """The active message box. One that is not active yet does not count, because the window
        manager may still move it to its place."""
        alerts = (w for w in self._top_levels()
                  if w.getRole() == pyatspi.ROLE_ALERT and has_state(w, pyatspi.STATE_ACTIVE))
        for box in alerts:
            parts = [(part, part.name) for part in descendants(box)]
            texts = [name for part, name in parts if part.getRole() == pyatspi.ROLE_LABEL and name]
            buttons = {name: place_of(part) for part, name in parts
                       if part.getRole() == pyatspi.ROLE_PUSH_BUTTON}
            return Box(box.name, "\n".join(texts), buttons, place_of(box))
        return None

    def is_enabled(self, name):
        return has_state(self.find(name), pyatspi.STATE_ENABLED)

    def is_selected(self, name):
        return has_state(self.find(name), pyatspi.STATE_CHECKED)

    def focused(self):
        for element in descendants(self.window):
            if has_state(element, pyatspi.STATE_FOCUSED):
                return element.name
        return None

    def click_hastily(self, caption):
        """Presses as a screen reader does, which clicks a moment later, and clicks five times before
        the window has done with the first click."""
        button = self.find(caption)
        self.point_at(place_of(button))
        button.queryAction().doAction(0)
        xdotool("click", "--repeat", 5, "--delay", 0, 1)

    def has_tooltip(self, text):
        tips = (w for w in self._top_levels() if w.getRole() == pyatspi.ROLE_TOOL_TIP)
        return any(tip.name == text for tip in tips)
