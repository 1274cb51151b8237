"""A user of the program on any platform. The user acts with the screen's own mouse and keyboard,
and waits for what is to be seen."""

import collections
import contextlib
import re
import subprocess
import time

import screen
from captions import BUTTON
from evidence import tell_what_is_seen
from screen import output_of, xdotool

# A message box. Its buttons are a dictionary of their places by their names; the inside is the
# place of the box without its title bar.
Box = collections.namedtuple("Box", "title text buttons inside")


class AnyUser:
    """A with block begins once the window is there and has the keyboard; its end kills the program.
    What the window shows is seen by the class of each platform: wait_for_window(), title(),
    client_place(), menu_bar(), place(caption), is_enabled(caption), is_selected(caption), result(),
    result_place(), focused() and find_box(). A place is left, top, right and bottom on the screen.
    focused() and find_box() are None where there is no focus and no box."""

    wait_for = staticmethod(screen.wait_for)

    def __init__(self, process, window_class):
        self.process = process
        self.window_class = window_class

    def __enter__(self):
        try:
            self.wait_for_window()
            self.wait_until(self.focused, "The keyboard focus")
        except Exception as error:
            self.__exit__(type(error), error, None)
            raise
        return self

    def __exit__(self, _, error, __):
        if error:
            tell_what_is_seen(error, self)
        self.process.kill()
        self.process.wait()

    def point_at(self, place):
        left, top, right, bottom = place
        xdotool("mousemove", (left + right) // 2, (top + bottom) // 2)

    def click_at(self, place, times=1, button=1):
        self.point_at(place)
        xdotool("click", "--repeat", times, "--delay", 50, button)

    def click(self, caption):
        self.click_at(self.place(caption))

    def drag_over_the_right_half(self, place):
        self.point_at(place)
        xdotool("mousedown", 1)
        left, top, right, bottom = place
        self.point_at((right - 8, top, right, bottom))
        xdotool("mouseup", 1)

    def press(self, *keys):
        xdotool("key", *keys)

    @contextlib.contextmanager
    def holding(self, key):
        """Keeps a key down for a with block, so that the keyboard repeats the key."""
        xdotool("keydown", key)
        try:
            yield
        finally:
            xdotool("keyup", key)

    def close_window(self):
        self.press("alt+F4")

    def click_close_button(self):
        """Clicks the button that closes the window in the title bar."""
        _, top, right, _ = self.menu_bar()
        self.click_at((right - 16, top - 16, right, top))

    def leave_and_come_back(self):
        """Gives the keyboard to another window for a while."""
        active = ["xdotool", "getactivewindow", "getwindowname"]

        def wait_until_active(title):
            self.wait_until(lambda: output_of(*active, check=False).strip() == title, f'"{title}" active')

        other = subprocess.Popen(["xev"], stdout=subprocess.DEVNULL)
        wait_until_active("Event Tester")
        time.sleep(1)  # until the toolkit believes that the keyboard has gone
        other.kill()
        other.wait()
        wait_until_active(self.title())

    def break_off(self):
        self.close_window()
        self.wait_for_end()

    def start(self):
        """Starts a request on the chosen port."""
        self.click(BUTTON)
        self.wait_until(lambda: self.find_box() or not self.is_enabled(BUTTON) or self.result(),
                        "The start of the request")

    def finish(self):
        """Answers every message until the request is over. Returns the titles and texts of the
        messages, and the number, empty where there is none."""
        messages = []
        while isinstance(end := self.wait_for(self._next_of_request, "The end of the request"), Box):
            messages.append((end.title, end.text))
            self.answer()
        return messages, end

    def _next_of_request(self):
        """A box or, once the request is over, the number, empty where there is none."""
        if self.process.poll() is not None:
            return ""
        try:
            return self.find_box() or (self.result() if self.is_enabled(BUTTON) else None)
        except StopIteration:  # the window goes a moment before its program has ended
            return None

    def wait_until_over(self, ends):
        """Waits until the program has ended with status 0 or, unless it ends, takes a request."""
        if not ends:
            self.wait_until_ready()
        elif self.wait_for_end() != 0:
            raise AssertionError(f"exit status {self.process.returncode}")

    def open_menu(self):
        """Opens the menu of the window and returns its place."""
        left, top, _, bottom = self.menu_bar()
        self.click_at((left, top, left + 60, bottom))
        return self.menu()

    def open_menu_of_result(self):
        self.click_at(self.result_place(), button=3)
        return self.menu()

    def open_system_menu(self):
        self.press("alt+space")
        return self.menu()

    def press_title_bar(self):
        """Presses the mouse button on the title bar and keeps it down."""
        left, top, right, _ = self.menu_bar()
        xdotool("mousemove", (left + right) // 2, top - 8, "mousedown", 1)

    def hold_title_bar(self):
        """Moves the window a little by its title bar and keeps the mouse button down."""
        self.press_title_bar()
        xdotool("mousemove_relative", 20, 20)

    def move_with_keys(self):
        """Moves the window a little with the keys, by "Move" of the system menu."""
        self.open_system_menu()
        self.press("m", "Right")

    def find_menu(self):
        """The place of the open menu, found by its lack of a WM_STATE, because the window manager
        does not manage menus."""
        search = ["xdotool", "search", "--onlyvisible", "--class", self.window_class]
        for window in output_of(*search, check=False).split():
            if "not found" in output_of("xprop", "-id", window, "WM_STATE", check=False):
                geometry = output_of("xdotool", "getwindowgeometry", "--shell", window, check=False)
                if numbers := re.findall(r"=(-?\d+)", geometry):  # none once it is closed
                    _, left, top, width, height, *_ = map(int, numbers)
                    return left, top, left + width, top + height
        return None

    def menu(self):
        return self.wait_for(self.find_menu, "The menu")

    def box(self):
        return self.wait_for(self.find_box, "A message box")

    def answer(self, button="OK"):
        """Clicks the button where it is by now, because the window manager may move a new box."""
        self.click_at(self.box().buttons[button])
        self.wait_until(lambda: self.find_box() is None, "The end of the box")

    def wait_until(self, condition, what):
        self.wait_for(lambda: condition() or None, what)

    def wait_until_focused(self, caption):
        self.wait_until(lambda: self.focused() == caption, f'The focus on "{caption}"')

    def wait_until_selected(self, caption):
        self.wait_until(lambda: self.is_selected(caption), f'"{caption}" selected')

    def wait_until_ready(self, ready=True):
        """Waits until the window takes a request, or until one is running where ready is False."""
        self.wait_until(lambda: self.is_enabled(BUTTON) == ready, f"Ready: {ready}")

    def wait_for_result(self, earlier=""):
        """The result, as soon as there is one that differs from the earlier one."""

        def look():
            now = self.result()
            return now if now not in ("", earlier) else None

        return self.wait_for(look, "A result")

    def copy_elsewhere(self, text):
        """Copies the text in another program. That one keeps it until somebody else copies."""
        command = ["xclip", "-selection", "clipboard"]
        subprocess.run(command, input=text, text=True, stdout=subprocess.DEVNULL, check=True)

    def copied(self, selection="clipboard"):
        return output_of("xclip", "-o", "-selection", selection, check=False)

    def wait_until_copied(self, text):
        self.wait_until(lambda: self.copied() == text, f'"{text}" copied')

    def wait_for_end(self, seconds=10.0):
        """Waits for the end of the program and returns its exit status."""
        return self.process.wait(seconds)
