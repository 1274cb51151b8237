#!/usr/bin/python3
"""The whole program as a user meets it: the real window, the real port service on a pseudo-terminal,
and a simulated pod; clicked with the mouse, read through the accessible tree.

Usage: whole_program_test.py WINDOW_ON_PORTS ZENDOR_POD_SIMULATOR
"""

import contextlib
import fcntl
import functools
import glob
import os
import sys
import tempfile
import time
import unittest

from appearance import Appearance
from captions import BUTTON, HEADING, OPTIONS
from layout import HEIGHT, PLACES, WIDTH
from screen import output_of, wait_for
from simulated_pod import BUILD_CODE, POLL, SERIAL, SLOW, WHOLE_REQUEST, SimulatedPod
from user import User, place_of

WINDOW, SIMULATOR = sys.argv[1:3]

Pod = functools.partial(SimulatedPod, SIMULATOR)

NO_POD = ("Error", "You Must Attach The Zendor!")
FAULTY = ("Error", "You Zendor maybe Faulty")


def open_terminals(user):
    folder = f"/proc/{user.process.pid}/fd"
    opened = []
    for name in os.listdir(folder):
        with contextlib.suppress(FileNotFoundError):  # closed meanwhile
            opened.append(os.readlink(f"{folder}/{name}"))
    return [name for name in opened if name.startswith("/dev/pts/")]


def lock_files():
    return sorted(glob.glob("/var/lock/LCK..*"))


def wait_for_terminals(user, *devices):
    """Until the program holds just these."""
    wait_for(lambda: open_terminals(user) == list(devices) or None, f"Just {devices} open")


class WholeProgram(Appearance, unittest.TestCase):
    def assert_box(self, box, expected):
        self.assertEqual((box.title, box.text), expected)

    def assert_refused(self, user, beginning):
        """The port does not open, for a reason that begins so, and the program ends."""
        box = user.box()
        self.assertEqual(box.title, "Error opening/closing Serial Port 1")
        self.assertTrue(box.text.startswith(beginning), box.text)
        self.assertTrue(box.text.endswith("\nPlease free the port or choose another"), box.text)
        user.answer_last(box)
        self.assertEqual(user.wait_for_end(), 0)

    def test_opens_in_the_middle_of_the_screen_with_every_control_in_its_place(self):
        with User([WINDOW]) as user:
            window = place_of(user.window)
            screen = map(int, output_of("xdotool", "getdisplaygeometry").split())
            for low, high, size in zip(window[:2], window[2:], screen):
                self.assertAlmostEqual(low + high, size, delta=30)  # the title bar lies above
            menu_bar = place_of(user.controls()[0])
            left, top = window[0], menu_bar[3]
            self.assertAlmostEqual(window[2] - left, WIDTH / 15, delta=1)
            self.assertAlmostEqual(window[3] - top, HEIGHT / 15, delta=1)
            for caption, (x, y, width, height) in PLACES.items():
                control = user.find(caption) if caption else user.result_box()
                place = [left + x / 15, top + y / 15]
                place += [place[0] + width / 15, place[1] + height / 15]
                seen = place_of(control)
                if caption in OPTIONS:  # what is seen of them is the circle and the caption
                    place = [place[0], (place[1] + place[3]) / 2]
                    seen = [seen[0], (seen[1] + seen[3]) / 2]
                for edge, expected in zip(seen, place):
                    self.assertAlmostEqual(edge, expected, delta=1, msg=caption)
            icon = output_of("xprop", "-name", user.window.name, "_NET_WM_ICON")
            self.assertIn("Icon (32 x 32)", icon)

    def test_shows_heading_and_result_large_and_centred_and_the_result_in_a_box(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            user.press("space")
            result = user.wait_for_result()
            places = place_of(user.find(HEADING)), place_of(user.result_box())
            self.assert_heading_and_result(*places, result)

    def test_waits_no_longer_while_a_menu_is_open(self):
        def open_the_menu_of_the_result(user):
            user.click_element(user.result_box(), button=3)

        def open_the_menu_of_the_window(user):
            user.open_menu("Serial Port")

        for open_menu in (open_the_menu_of_the_result, open_the_menu_of_the_window):
            with self.subTest(open_menu.__name__):
                with Pod("--no-pod") as pod, User([WINDOW, pod.device]) as user:
                    user.press("space")
                    user.wait_until_disabled(BUTTON)
                    open_menu(user)
                    self.assert_box(user.box(), NO_POD)

    def test_shows_the_number_and_closes_the_port(self):
        rows = [
            (("--build-code", "Customer", "--serial-number", "1234567"), "C-1234567"),
            (("--build-code", "Engineer", "--serial-number", "42"), "E-42"),
            (("--build-code", "Engineer", "--serial-number", "16777215"), "E-16777215"),
        ]
        for options, caption in rows:
            with self.subTest(caption), Pod(*options) as pod, User([WINDOW, pod.device]) as user:
                self.assertEqual(user.result(), "")
                self.assertEqual(user.focused(), BUTTON)
                user.press("space")
                self.assertEqual(user.wait_for_result(), caption)
                user.wait_until_enabled(BUTTON)
                user.wait_until_focused(BUTTON)
                wait_for_terminals(user)
                self.assertEqual(pod.requests(), WHOLE_REQUEST)

    def test_asks_the_chosen_port(self):
        with Pod("--serial-number", "1") as first, Pod("--serial-number", "3") as third:
            with User([WINDOW, first.device, "/none", third.device]) as user:
                user.click("Serial Port 3")
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-3")
                user.click("Serial Port 1")
                user.click(BUTTON)
                self.assertEqual(user.wait_for_other_result("C-3"), "C-1")

    def test_says_once_that_no_pod_answers_and_stays_usable(self):
        faults = ("--fault", "echo-only:254:2")  # nobody answers the first poll
        with Pod(*faults, "--serial-number", "7") as pod, User([WINDOW, pod.device]) as user:
            start = time.monotonic()
            user.click(BUTTON)
            user.click("Serial Port 2")  # the window is alive meanwhile
            user.wait_until_selected("Serial Port 2")
            box = user.box()
            self.assertGreater(time.monotonic() - start, 1.9)
            self.assert_box(box, NO_POD)
            self.assertEqual(user.result(), "")
            user.answer(box)
            user.wait_until_focused(BUTTON)
            user.click("Serial Port 1")
            user.click(BUTTON)
            self.assertEqual(user.wait_for_result(), "C-7")
            self.assertEqual(pod.requests(), [POLL, POLL, *WHOLE_REQUEST])

    def test_is_worked_with_the_keyboard_alone(self):
        with Pod("--serial-number", "5") as pod, User([WINDOW, pod.device, pod.device]) as user:
            steps = [
                ("space", BUTTON, 1),
                ("Tab", "Serial Port 1", 1),
                ("Down", "Serial Port 2", 1),
                ("Return", "Serial Port 2", 2),
                ("Escape", "Serial Port 2", 2),
                ("Tab", BUTTON, 2),
                ("Return", BUTTON, 3),
            ]
            for key, focus, requests in steps:
                with self.subTest(key):
                    user.press(key)
                    user.wait_until_focused(focus)
                    pod.wait_for(SERIAL, requests)
                    user.wait_until_enabled(BUTTON)
                    self.assertEqual(user.wait_for_result(), "C-5")
            user.wait_until_selected("Serial Port 2")
            self.assertFalse(user.is_selected("Serial Port 1"))
            user.press("ctrl+c")
            self.assertEqual(user.wait_for_clipboard("C-5"), "C-5")
            user.fill_clipboard("something else")
            user.click_element(user.result_box(), button=3)
            user.press("Down", "Return")  # the one entry of the menu
            self.assertEqual(user.wait_for_clipboard("C-5"), "C-5")
            user.double_click(user.result_box())  # selects all of it and takes no focus
            self.assertEqual(user.wait_for_selection("C-5"), "C-5")
            self.assertEqual(user.focused(), BUTTON)
            self.assertEqual(pod.requests(), WHOLE_REQUEST * 3)

    def test_leaves_the_focus_where_the_user_put_it_meanwhile(self):
        with Pod(*SLOW) as pod, User([WINDOW, pod.device]) as user:
            user.press("space")
            user.wait_until_disabled(BUTTON)
            user.press("Tab")
            user.wait_until_focused("Serial Port 1")
            user.wait_for_result()
            user.wait_until_enabled(BUTTON)
            self.assertEqual(user.focused(), "Serial Port 1")

    def test_can_be_read_by_a_screen_reader(self):
        slow = ("--fault", "echo-only:254:1")  # until the program knows who wants to hear of results
        with Pod(*slow) as pod, User([WINDOW, pod.device]) as user:
            user.wait_for_description("Serial Port 1", pod.device)
            user.point_at(user.find("Serial Port 1"))
            user.wait_for_tooltip(pod.device)
            seen = [(e.getRoleName(), e.name, e.description) for e in user.controls()]
            nothing = "no such port on this computer"
            self.assertEqual(seen, [
                ("menu bar", "", ""),
                ("menu item", "Serial Port", ""),
                ("popup menu", "", ""),
                ("separator", "", ""),
                ("label", HEADING, "The serial number stands in the box below."),
                # The result, which its heading names while it is empty.
                ("label", HEADING, "The serial number that the last request has read."),
                ("radio button", "Serial Port 1", pod.device),
                ("radio button", "Serial Port 2", nothing),
                ("radio button", "Serial Port 3", nothing),
                ("radio button", "Serial Port 4", nothing),
                ("push button", BUTTON,
                 "Asks the pod on the chosen serial port for its serial number."),
            ])

            def request():
                user.click(BUTTON)
                user.wait_for_result()

            self.assertIn("C-1234567", user.announced(request))

    @unittest.skipUnless(os.access("/dev", os.W_OK), "takes a user who may add devices")
    def test_tells_of_an_adapter_that_comes_and_goes(self):
        adapter = "/dev/ttyZendorTest"
        with User([WINDOW, adapter]) as user:
            user.wait_for_description("Serial Port 1", "no such port on this computer")
            with Pod("--link", adapter) as pod:
                user.wait_for_description("Serial Port 1", adapter)
                pod.process.terminate()
                user.wait_for_description("Serial Port 1", "no such port on this computer")

    def test_ends_after_a_faulty_pod(self):
        rows = [
            (("--fault", "wrong-checksum:242"), [POLL] + [BUILD_CODE, SERIAL, SERIAL] * 2),
            (("--fault", "busy:192"), [POLL] + [BUILD_CODE] * 4),
            (("--build-code", "customer"), [POLL] + [BUILD_CODE] * 2),
        ]
        for options, requests in rows:
            with self.subTest(options), Pod(*options) as pod, User([WINDOW, pod.device]) as user:
                user.click(BUTTON)
                box = user.box()
                self.assert_box(box, FAULTY)
                user.answer_last(box)
                self.assertEqual(user.wait_for_end(), 0)
                self.assertEqual(pod.requests(), requests)

    def test_tells_a_missing_a_held_and_a_wrong_port_apart_and_ends(self):
        with Pod() as pod, open(pod.device, "rb") as holder:
            fcntl.flock(holder, fcntl.LOCK_EX)
            rows = [
                ([], "There is no serial port 1 "),
                (["/dev/ttyNone"], "There is no serial port /dev/ttyNone "),
                ([pod.device], f"The serial port {pod.device} is in use by another program"),
                ([__file__], f"{__file__} is not a serial port"),
            ]
            for devices, beginning in rows:
                with self.subTest(beginning), User([WINDOW, *devices]) as user:
                    user.click(BUTTON)
                    self.assert_refused(user, beginning)

    def test_ends_at_once_when_closed_in_the_middle_of_a_wait(self):
        with Pod("--no-pod") as pod:
            for _ in range(2):  # the port opens again
                with User([WINDOW, pod.device]) as user:
                    start = time.monotonic()
                    user.click(BUTTON)
                    user.wait_until_disabled(BUTTON)
                    wait_for_terminals(user, pod.device)
                    user.close_window()
                    self.assertEqual(user.wait_for_end(), 0)
                    self.assertLess(time.monotonic() - start, 1.9)  # the wait would take 2 s

    def test_frees_the_port_when_it_is_killed_and_leaves_no_lock_behind(self):
        locks = lock_files()
        with Pod("--serial-number", "9", *SLOW) as pod:
            with User([WINDOW, pod.device]) as user:
                user.click(BUTTON)
                user.wait_until_disabled(BUTTON)
            with User([WINDOW, pod.device]) as user:
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-9")
            self.assertEqual(lock_files(), locks)

    def test_a_line_torn_out_before_the_request_is_absent(self):
        with Pod() as pod, User([WINDOW, pod.device]) as user:
            pod.process.kill()
            pod.process.wait()
            user.click(BUTTON)
            self.assert_refused(user, f"There is no serial port {pod.device} ")

    def test_a_line_torn_out_during_the_request_ends_it_by_what_arrived(self):
        rows = [
            # Nothing of a reply: the second attempt cannot be written.
            ("echo-only:254", POLL, 2, NO_POD),
            # In the middle of the build code, which three more attempts cannot ask for.
            ("short-reply:192", BUILD_CODE, 4, FAULTY),
        ]
        for fault, request, attempts, outcome in rows:
            with self.subTest(fault), Pod("--fault", fault) as pod:
                with User([WINDOW, pod.device]) as user:
                    user.click(BUTTON)
                    pod.wait_for(request)
                    time.sleep(0.2)  # what is to come of the reply has come, the wait goes on
                    pod.process.kill()
                    for _ in range(attempts - pod.requests().count(request)):
                        box = user.box()
                        self.assertEqual(box.title, "Unhandled Error")
                        self.assertTrue(box.text.startswith("Unhandled Error number 5\n"), box.text)
                        self.assertTrue(box.text.endswith("\nOccured in LL_Serial_SendMessage"))
                        user.answer(box)
                    box = user.box()
                    self.assert_box(box, outcome)
                    user.answer_last(box)
                    if outcome == FAULTY:
                        self.assertEqual(user.wait_for_end(), 0)
                    else:
                        user.wait_until_enabled(BUTTON)

    def test_a_line_torn_out_behind_a_message_opens_again_once_it_is_back(self):
        with tempfile.TemporaryDirectory() as folder, User([WINDOW, f"{folder}/tty"]) as user:
            with Pod("--no-pod", "--link", f"{folder}/tty"):
                user.click(BUTTON)
                box = user.box()
            user.answer(box)
            user.wait_until_enabled(BUTTON)
            wait_for_terminals(user)
            with Pod("--link", f"{folder}/tty"):
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-1234567")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
