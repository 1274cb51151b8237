#!/usr/bin/python3
"""The whole program as a user meets it, on the platform that the first argument names: the real
window, and the program's own serial port on a pseudo-terminal with a simulated pod."""

import itertools
import re
import sys
import tempfile
import time
import unittest

from captions import BUTTON, OPTIONS
from platform_under_test import VERSION, Pod, this_platform
from picture import finished_picture
from screen import output_of, xdotool
from simulated_pod import BUILD_CODE, POLL, SERIAL, SLOW, WHOLE_REQUEST

NO_POD = ("Error", "You Must Attach The Zendor!", "red")


class Request(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = this_platform()
        cls.addClassCleanup(cls.platform.close)
        cls.platform.set_up()

    user = property(lambda self: self.platform.user)

    def assert_box(self, box, title, text, sign):
        """The text is a pattern. The sign is red for a stop, yellow for a warning, else None."""
        self.assertEqual((box.title, list(box.buttons)), (title, ["OK"]))
        self.assertRegex(box.text, text)
        self.assertEqual(finished_picture(box.inside, "The message").sign(), sign)

    def test_is_a_dialog_of_fixed_size_with_an_icon_and_a_menu_that_offers_nothing(self):
        with self.user() as user:
            self.assertEqual(user.title(), f"Zendor Serial Number Extractor V{VERSION}")
            told = output_of("xprop", "-name", user.title())
            self.assertIn("Icon (32 x 32)", told)
            least, most = re.findall(r"m[ai][nx]imum size: (\d+ by \d+)", told)
            self.assertEqual(least, most)
            functions = re.search(r"_MOTIF_WM_HINTS\(_MOTIF_WM_HINTS\) = \w+, (\w+)", told)[1]
            self.assertEqual(int(functions, 16) & 0x18, 0)  # to minimise and to maximise
            _, end, _ = finished_picture(user.menu_bar(), "The title of the menu").ink()
            self.assertGreater(end, 40)  # wider than "Port", the title at first
            menu = finished_picture(user.open_menu(), "The menu").without_edges()
            drawn = [set(row) for row in menu.rows if len(set(row)) > 1]
            self.assertEqual([len(colors) for colors in drawn], [2])  # a line on the background

    def test_a_tooltip_tells_the_device_behind_a_choice(self):
        with tempfile.TemporaryDirectory() as folder, Pod(device=f"{folder}/<b>") as pod:
            with self.user(pod.device) as user:
                tip = self.platform.tooltip(pod.device)
                user.point_at(user.place(OPTIONS[0]))
                user.wait_until(lambda: user.has_tooltip(tip), f'The tooltip "{tip}"')

    def test_a_request_starts_with_the_first_port_and_gives_the_focus_back(self):
        with Pod("--fault", "echo-only:192:1") as pod, self.user(pod.device) as user:
            self.assertEqual((user.result(), user.focused()), ("", BUTTON))
            self.assertTrue(user.is_selected(OPTIONS[0]))
            user.click_hastily(BUTTON)
            user.wait_for_result()
            user.wait_until_ready()
            user.wait_until_focused(BUTTON)  # a disabled button loses the focus
            self.assertEqual(pod.requests_at_end(), [POLL, BUILD_CODE, BUILD_CODE, SERIAL])

    def test_keeps_the_result_while_another_window_has_the_keyboard(self):
        with Pod(*SLOW) as pod, self.user(pod.device) as user:
            user.click(BUTTON)
            user.wait_until_ready(False)
            user.leave_and_come_back()
            result = user.wait_for_result()
            user.wait_until_focused(BUTTON)
            user.leave_and_come_back()
            # The key comes after all that the window does when it has the keyboard again.
            user.press("Tab")
            user.wait_until_focused(OPTIONS[0])
            self.assertEqual(user.result(), result)

    def test_is_closed_under_an_open_menu_and_not_behind_a_message(self):
        with Pod("--no-pod") as pod, self.user(pod.device) as user:
            user.click(BUTTON)
            user.box()
            user.click_close_button()
            user.answer()
            user.wait_until_focused(BUTTON)
            user.open_menu()
            user.click_close_button()  # only closes the menu
            user.click_close_button()
            self.assertEqual(user.wait_for_end(), 0)

    def test_asks_the_port_that_is_chosen_at_the_click(self):
        with Pod("--serial-number", "1", *SLOW) as first, Pod("--serial-number", "4") as fourth:
            with self.user(first.device, None, None, fourth.device) as user:
                user.click(BUTTON)
                user.click(OPTIONS[3])
                self.assertEqual(user.wait_for_result(), "C-1")
                user.wait_until_ready()
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result("C-1"), "C-4")

    def test_says_once_that_no_pod_answers_and_stays_usable(self):
        faults = ("--fault", "echo-only:254:2")  # both polls of the first request stay unanswered
        with Pod(*faults, "--serial-number", "7") as pod, self.user(pod.device) as user:
            start = time.monotonic()
            user.click(BUTTON)
            user.click(OPTIONS[1])  # the window is alive meanwhile
            user.wait_until_selected(OPTIONS[1])
            self.assertFalse(user.is_enabled(BUTTON))
            box = user.box()
            self.assertGreater(time.monotonic() - start, 1.9)
            self.assert_box(box, *NO_POD)
            user.click(OPTIONS[2])  # the box is modal to the window
            user.answer()
            user.wait_until_focused(BUTTON)
            self.assertTrue(user.is_selected(OPTIONS[1]))
            self.assertEqual(user.result(), "")
            user.click(OPTIONS[0])
            user.click(BUTTON)
            self.assertEqual(user.wait_for_result(), "C-7")
            self.assertEqual(pod.requests_at_end(), [POLL, POLL, *WHOLE_REQUEST])

    def test_is_worked_with_the_keyboard_alone(self):
        with Pod("--serial-number", "5") as pod, self.user(pod.device, pod.device) as user:
            steps = [
                ("space", BUTTON, 1),
                ("Tab", OPTIONS[0], 1),
                ("Down", OPTIONS[1], 1),
                ("Return", OPTIONS[1], 2),  # works the default button from any control
                ("Escape", OPTIONS[1], 2),
                ("Tab", BUTTON, 2),
                ("shift+Tab", OPTIONS[1], 2),
                ("shift+Tab", BUTTON, 2),
                ("Return", BUTTON, 3),
            ]
            for key, focus, requests in steps:
                with self.subTest(key):
                    user.press(key)
                    user.wait_until_focused(focus)
                    pod.wait_for(SERIAL, requests)
                    user.wait_until_ready()
                    self.assertEqual(user.wait_for_result(), "C-5")
            self.assertTrue(user.is_selected(OPTIONS[1]))
            self.assertFalse(user.is_selected(OPTIONS[0]))
            before = finished_picture(user.result_place(), "The result").rows
            user.press("ctrl+c")
            user.wait_until_copied("C-5")
            self.assertEqual(finished_picture(user.result_place(), "The result").rows, before)
            self.assertEqual(pod.requests_at_end(), WHOLE_REQUEST * 3)

    def test_a_key_that_is_held_starts_one_request(self):
        with Pod() as pod, self.user(pod.device) as user:
            with user.holding("Return"):
                user.wait_for_result()
                time.sleep(1.5)  # the keyboard repeats the key meanwhile
            user.wait_until_ready()
            self.assertEqual(pod.requests_at_end(), WHOLE_REQUEST)

    def test_a_message_is_answered_by_a_key_that_is_pressed_after_it_has_come(self):
        with Pod("--no-pod") as pod, self.user(pod.device) as user:
            with user.holding("Return"):
                user.box()
                time.sleep(1)  # the keyboard repeats the key meanwhile
                user.box()
            user.press("Return")
            user.wait_until_ready()
            self.assertEqual(pod.requests_at_end(), [POLL, POLL])

    def test_the_arrow_keys_walk_through_the_ports_and_round(self):
        with self.user() as user:
            user.press("Tab")
            walks = [("Down", (1, 2, 3, 0)), ("Right", (1, 2, 3, 0)), ("Up", (3, 2, 1, 0)),
                     ("Left", (3, 2, 1, 0))]
            for key, order in walks:
                for index in order:
                    with self.subTest(key, option=OPTIONS[index]):
                        user.press(key)
                        user.wait_until_focused(OPTIONS[index])
                        user.wait_until_selected(OPTIONS[index])
            with user.holding("Down"):  # the keyboard repeats the key
                user.wait_until(lambda: user.focused() in OPTIONS[2:], "The third option or the last")

    def test_copies_the_result_with_the_mouse_and_leaves_the_focus_alone(self):
        with Pod() as pod, self.user(pod.device) as user:
            user.press("space", "Tab")
            user.wait_for_result()
            user.wait_until_ready()
            user.drag_over_the_right_half(user.result_place())
            for key in ("ctrl+Insert", "ctrl+c"):  # the selection stays as it was
                user.copy_elsewhere("earlier")
                user.press(key)
                user.wait_until(lambda: user.copied() in ("34567", "4567"), "The right half copied")
            user.click_at(user.result_place(), times=2)
            user.press("shift+Tab")  # handled after the clicks, and starts at the focus
            user.wait_until_focused(BUTTON)
            user.open_menu_of_result()
            user.press("c")  # the key of "Copy"
            user.wait_until_copied("C-1234567")
            user.wait_until_focused(BUTTON)

    def test_the_menu_of_the_result_opens_with_the_keyboard_and_copies_what_there_is(self):
        with Pod() as pod, self.user(pod.device) as user:
            user.copy_elsewhere("earlier")
            user.press("Menu")
            user.menu()
            user.press("c", "Escape")  # the key of "Copy", but there is nothing to copy yet
            user.wait_until(lambda: user.find_menu() is None, "The end of the menu")
            user.press("Return")
            user.wait_for_result()
            user.wait_until_ready()
            user.wait_until_copied("earlier")
            shown = finished_picture(user.result_place(), "The result").rows
            user.press("Tab")
            for key in ("Menu", "shift+F10"):
                user.press(key)
                user.menu()
                user.press("c")
                user.wait_until(lambda: user.find_menu() is None, "The end of the menu")
                user.wait_until_focused(OPTIONS[0])
                now = finished_picture(user.result_place(), "The result").rows
                self.assertTrue(now == shown, "The number is left highlighted")
            user.wait_until_copied("C-1234567")

    def test_leaves_the_focus_where_the_user_puts_it_during_a_request(self):
        with Pod(*SLOW) as pod, self.user(pod.device) as user:
            user.press("Return")
            user.wait_until_ready(False)
            user.press("Tab")
            user.wait_until_focused(OPTIONS[0])
            user.press("Return")  # a second request does not start inside the first
            user.wait_for_result()
            user.wait_until_ready()
            self.assertEqual(user.focused(), OPTIONS[0])
            asked = [frame for frame, _ in itertools.groupby(pod.requests_at_end())]
            self.assertEqual(asked, [POLL, BUILD_CODE, SERIAL, BUILD_CODE, SERIAL])

    def test_a_request_goes_on_while_the_user_holds_the_window(self):
        self.addCleanup(self.platform.set_up)
        for settings, hold in self.platform.holds:
            self.platform.set_up(**settings)
            for options in (("--no-pod",), SLOW):
                with self.subTest(hold.__name__, options=options), Pod(*options) as pod:
                    with self.user(pod.device) as user:
                        user.click(BUTTON)
                        user.wait_until_ready(False)
                        hold(user)
                        if options == SLOW:
                            user.wait_for_result()
                        else:
                            self.assert_box(user.box(), *NO_POD)
                            if not settings:  # an unmanaged window looks like a menu
                                self.assertIsNone(user.find_menu())
                            xdotool("mouseup", 1)
                            user.answer()
                            self.assert_stays(user)
                xdotool("mouseup", 1)

    def assert_stays(self, user):
        """The window does not follow the mouse, and accepts a click after the mouse has moved."""
        user.wait_until_ready()
        place, option = user.client_place(), user.place(OPTIONS[3])
        user.point_at(user.place(OPTIONS[0]))
        user.click_at(option)
        user.wait_until_selected(OPTIONS[3])
        self.assertEqual(user.client_place(), place)

    def test_each_kind_of_message_has_its_sign(self):
        torn_out = ("--fault", "echo-only:254", "--pull-out-after", "1")
        with Pod(*torn_out) as pod, self.user(pod.device) as user:
            user.click(BUTTON)  # the second attempt cannot be written
            self.assert_box(user.box(), "Unhandled Error", "Occured", "yellow")
            user.finish()
            user.click(BUTTON)
            self.assert_box(user.box(), "Error opening/closing Serial Port 1", "free the port", None)

    def test_a_line_torn_out_behind_a_message_opens_again_once_it_is_back(self):
        with tempfile.TemporaryDirectory() as folder, self.user(f"{folder}/tty") as user:
            with Pod("--no-pod", device=f"{folder}/tty"):
                user.click(BUTTON)
                user.box()
            user.answer()
            user.wait_until_ready()
            with Pod(device=f"{folder}/tty"):
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-1234567")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
