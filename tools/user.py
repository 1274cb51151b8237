"""A user of the program: sees its windows through the desktop's accessible tree, as a screen reader
does, and acts with the screen's own mouse and keyboard."""

import os
import subprocess
import time

import pyatspi
from gi.repository import GLib

import screen
from captions import HEADING
from screen import xdotool

WINDOW = "Zendor Serial Number Extractor V"


def wait_for(look, what, seconds=20.0):
    """As on any screen; what goes away while it is looked at is looked for again."""

    def look_again():
        try:
            return look()
        except GLib.Error:
            return None

    return screen.wait_for(look_again, what, seconds)


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


class Box:
    """An open message box."""

    def __init__(self, element):
        self.element = element
        self.title = element.name
        texts = [e.name for e in descendants(element) if e.getRole() == pyatspi.ROLE_LABEL]
        self.text = "\n".join(text for text in texts if text)


class User:
    """Starts the program and uses its window; the program is killed at the end of a with block."""

    def __init__(self, command, **variables):
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **variables)
        self.process = subprocess.Popen(command, env=environment)
        self.window = wait_for(self._window, "The window")
        wait_for(lambda: self.focused() and True, "The keyboard focus")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def _top_levels(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                yield from (child for child in application if child is not None)

    def _window(self):
        return next((w for w in self._top_levels() if w.name.startswith(WINDOW)), None)

    def _box(self):
        return next((w for w in self._top_levels() if w.getRole() == pyatspi.ROLE_ALERT), None)

    def find(self, name, where=None):
        def look():
            for element in descendants(where or self.window):
                if element.name == name:
                    return element
            return None

        return wait_for(look, f'"{name}"')

    def click(self, name, where=None):
        self.click_element(self.find(name, where))

    def point_at(self, element):
        left, top, right, bottom = place_of(element)
        xdotool("mousemove", (left + right) // 2, (top + bottom) // 2)

    def click_element(self, element, times=1, button=1):
        self.point_at(element)
        xdotool("click", "--repeat", times, "--delay", 50, button)

    def double_click(self, element):
        self.click_element(element, 2)

    def press(self, *keys):
        xdotool("key", *keys)

    def close_window(self):
        self.press("alt+F4")

    def result(self):
        """The text of the result box; while it is empty it goes by the name of its heading."""
        name = self.result_box().name
        return "" if name == HEADING else name

    def result_box(self):
        return [e for e in descendants(self.window) if e.getRole() == pyatspi.ROLE_LABEL][-1]

    def wait_for_result(self, seconds=10.0):
        return wait_for(lambda: self.result() or None, "A result", seconds)

    def wait_for_other_result(self, earlier, seconds=10.0):
        def look():
            now = self.result()
            return now if now not in ("", earlier) else None

        return wait_for(look, "Another result", seconds)

    def box(self, seconds=10.0):
        """The open message box, waited for."""
        return Box(wait_for(self._box, "A message box", seconds))

    def answer(self, box, button="OK"):
        """Answers the box and waits until it has gone."""
        self.click(button, box.element)
        wait_for(lambda: None if self._box() else True, "The end of the box")

    def answer_last(self, box, button="OK"):
        """Answers the box with which the program ends."""
        self.click(button, box.element)

    def is_enabled(self, name):
        return has_state(self.find(name), pyatspi.STATE_ENABLED)

    def is_selected(self, name):
        return has_state(self.find(name), pyatspi.STATE_CHECKED)

    def focused(self):
        for element in descendants(self.window):
            if has_state(element, pyatspi.STATE_FOCUSED):
                return element.name
        return None

    def wait_until_focused(self, name):
        wait_for(lambda: self.focused() == name or None, f'The focus on "{name}"')

    def wait_until_selected(self, name):
        wait_for(lambda: self.is_selected(name) or None, f'"{name}" selected')

    def wait_until_disabled(self, name):
        wait_for(lambda: None if self.is_enabled(name) else True, f'"{name}" disabled')

    def wait_for_end(self, seconds=10.0):
        """The exit status of the program."""
        return self.process.wait(seconds)

    def wait_until_enabled(self, name):
        wait_for(lambda: self.is_enabled(name) or None, f'"{name}" enabled')

    def wait_for_description(self, name, text):
        wait_for(lambda: self.find(name).description == text or None, f'"{text}"')

    def wait_for_tooltip(self, text):
        def look():
            tips = (w for w in self._top_levels() if w.getRole() == pyatspi.ROLE_TOOL_TIP)
            return any(tip.name == text for tip in tips) or None

        wait_for(look, f'The tooltip "{text}"')

    def fill_clipboard(self, text):
        command = ["xclip", "-selection", "clipboard"]
        subprocess.run(command, check=True, input=text, text=True, stdout=subprocess.DEVNULL)

    def wait_for_clipboard(self, text):
        return self.wait_for_selection(text, "clipboard")

    def wait_for_selection(self, text, selection="primary"):
        def look():
            command = ["xclip", "-o", "-selection", selection]
            found = subprocess.run(command, capture_output=True, text=True).stdout
            return found if found == text else None

        return wait_for(look, f'"{text}" in the {selection}')

    def controls(self):
        """All that the window holds, without what only groups it."""
        return [e for e in descendants(self.window) if e.getRole() != pyatspi.ROLE_FILLER]

    def announced(self, act):
        """The new names of controls that a screen reader is told while act() runs."""
        names = []

        def hear(event):
            names.append(event.source.name)

        pyatspi.Registry.registerEventListener(hear, "object:property-change:accessible-name")
        act()
        while GLib.MainContext.default().iteration(False):
            pass
        pyatspi.Registry.deregisterEventListener(hear, "object:property-change:accessible-name")
        return names

    def open_menu(self, name):
        """Opens the menu, waits until its first entry shows, and tells the roles of its entries."""
        self.click(name)
        entries = list(next(iter(self.find(name))))
        wait_for(lambda: has_state(entries[0], pyatspi.STATE_SHOWING) or None, "The menu")
        return [entry.getRoleName() for entry in entries]

    def picture_of_window(self, path):
        """The window and what stands before it, without the empty screen around."""
        time.sleep(0.3)  # what shows has been drawn by then
        command = ["import", "-window", "root", "-trim", "+repage", path]
        subprocess.run(command, check=True)
