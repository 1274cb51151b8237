"""A user of the program: sees its windows through the desktop's accessible tree, as a screen reader
does, and acts with the screen's own mouse and keyboard."""

import os
import subprocess
import time

import pyatspi

HEADING = "Your Zendor Serial Number is:"
BUTTON = "Get Serial Number"


def wait_for(look, what, seconds=10.0):
    """What look() finds, as soon as it is not None; an error that names it when it never is."""
    deadline = time.monotonic() + seconds
    while True:
        found = look()
        if found is not None:
            return found
        if time.monotonic() > deadline:
            raise TimeoutError(f"{what} did not come within {seconds} s")
        time.sleep(0.01)


def descendants(element):
    for child in element:
        if child is not None:
            yield child
            yield from descendants(child)


def has_state(element, state):
    return element.getState().contains(state)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


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
        self.window = wait_for(lambda: self._top_level(pyatspi.ROLE_FRAME), "The window")
        wait_for(lambda: self.focused() and True, "The keyboard focus")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def _top_level(self, *roles):
        for application in pyatspi.Registry.getDesktop(0):
            if application is None or application.get_process_id() != self.process.pid:
                continue
            for child in application:
                if child is not None and child.getRole() in roles:
                    return child
        return None

    def find(self, name, where=None):
        def look():
            for element in descendants(where or self.window):
                if element.name == name:
                    return element
            return None

        return wait_for(look, f'"{name}"')

    def click(self, name, where=None):
        self.click_element(self.find(name, where))

    def click_element(self, element):
        box = element.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        xdotool("mousemove", box.x + box.width // 2, box.y + box.height // 2, "click", 1)

    def press(self, *keys):
        xdotool("key", *keys)

    def close_window(self):
        self.press("alt+F4")

    def result(self):
        """The text of the result box."""
        for element in descendants(self.window):
            if element.getRole() == pyatspi.ROLE_LABEL and element.name != HEADING:
                return element.name
        raise LookupError("There is no result box")

    def wait_for_result(self, seconds=10.0):
        return wait_for(lambda: self.result() or None, "A result", seconds)

    def box(self, seconds=10.0):
        """The open message box, waited for."""
        roles = (pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG)
        return Box(wait_for(lambda: self._top_level(*roles), "A message box", seconds))

    def answer(self, box, button="OK"):
        self.click(button, box.element)
        wait_for(lambda: self._top_level(box.element.getRole()) is None or None, "Its end")

    def is_enabled(self, name):
        return has_state(self.find(name), pyatspi.STATE_ENABLED)

    def focused(self):
        for element in descendants(self.window):
            if has_state(element, pyatspi.STATE_FOCUSED):
                return element.name
        return None

    def wait_for_end(self, seconds=10.0):
        """The exit status of the program."""
        return self.process.wait(seconds)

    @staticmethod
    def picture(path):
        """A picture of the whole screen."""
        subprocess.run(["import", "-window", "root", path], check=True)
