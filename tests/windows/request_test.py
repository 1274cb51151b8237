#!/usr/bin/python3
"""Requests of the Windows program under Wine: the real program, a simulated pod on a pseudo-terminal
behind COM1, clicked with the mouse and read through its windows.

Usage: request_test.py BUILD_FOLDER ZENDOR_POD_SIMULATOR
"""

import sys
import time
import unittest

from captions import BUTTON, OPTIONS
from layout import PLACES
from on_windows import VERSION, OnWindows, Pod
from picture import finished_picture
from screen import wait_for, xdotool
from simulated_pod import BUILD_CODE, POLL, SERIAL, SLOW

CAPTION = f"Zendor Serial Number Extractor V{VERSION}"


def icon_of(box):
    """"red" for a stop sign, "yellow" for a warning sign, or None."""
    return finished_picture(box.inside, "The message").sign()


class Request(OnWindows):
    def setUp(self):
        self.restart()
        self.addCleanup(lambda: self.reader.close())

    def test_shows_the_number(self):
        rows = [
            (("--build-code", "Customer", "--serial-number", "1234567"), "C-1234567"),
            (("--build-code", "Engineer", "--serial-number", "42"), "E-42"),
        ]
        for options, caption in rows:
            with self.subTest(caption), Pod(*options) as pod, self.user(com1=pod.device) as user:
                self.assertEqual(user.rows()[0].text, CAPTION)
                self.assertEqual(user.result(), "")
                self.assertTrue(user.is_selected(OPTIONS[0]))
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), caption)
                user.wait_until_enabled()
                self.assertEqual(pod.requests(), [POLL, BUILD_CODE, SERIAL])

    def test_opens_a_menu_that_offers_nothing(self):
        with self.user() as user:
            button = user.find(BUTTON)
            client_top = button.top - PLACES[BUTTON][1] // 15
            bar = (button.left, client_top - 16, button.left + 150, client_top)
            _, title_end, bar_end = finished_picture(bar, "The title of the menu").ink()
            self.assertTrue(40 < title_end < bar_end)  # at the start it is "Port", and shorter
            xdotool("mousemove", button.left + 20, client_top - 8, "click", 1)
            menu = wait_for(lambda: self.reader.window("#32768"), "The menu")[0]
            self.assertLess(menu.bottom - menu.top, 20)  # the height of a separator, not of a text
            user.press("Escape", "Escape")
            wait_for(lambda: None if self.reader.window("#32768") else True, "The end of the menu")

    def test_asks_the_chosen_port(self):
        with Pod("--serial-number", "1") as first, Pod("--serial-number", "4") as fourth:
            with self.user(com1=first.device, com4=fourth.device) as user:
                user.click(OPTIONS[3])
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result(), "C-4")
                user.wait_until_enabled()
                user.click(OPTIONS[0])
                user.click(BUTTON)
                self.assertEqual(user.wait_for_result("C-4"), "C-1")

    def test_says_once_that_no_pod_answers_and_stays_usable(self):
        faults = ("--fault", "echo-only:254:2")  # nobody answers the first poll
        with Pod(*faults, "--serial-number", "7") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            user.click(OPTIONS[1])  # the window is alive meanwhile
            user.wait_until_selected(OPTIONS[1])
            self.assertFalse(user.is_enabled(BUTTON))
            box = user.box()
            self.assertEqual(
                (box.title, box.text, box.buttons, icon_of(box)),
                ("Error", "You Must Attach The Zendor!", ["OK"], "red"),
            )
            self.assertNotIn("enabled", user.rows()[0].state)  # the box is modal to the window
            user.answer(box)
            user.wait_until_focused(BUTTON)
            self.assertEqual(user.result(), "")
            user.click(OPTIONS[0])
            user.click(BUTTON)
            self.assertEqual(user.wait_for_result(), "C-7")
            self.assertEqual(pod.requests(), [POLL, POLL, POLL, BUILD_CODE, SERIAL])

    def test_says_why_a_port_does_not_open_and_ends(self):
        for devices in ({}, {"com2": __file__}):  # gone, and not a serial port
            with self.subTest(devices), self.user(**devices) as user:
                user.click(OPTIONS[1])
                user.click(BUTTON)
                box = user.box()
                self.assertEqual(box.title, "Error opening/closing Serial Port 2")
                self.assertIsNone(icon_of(box))
                self.assertRegex(
                    box.text, r"^COM2: .+\nPlease free the port or choose another$"
                )
                user.answer(box)
                self.assertEqual(user.wait_for_end(), 0)

    def test_ends_after_a_faulty_pod(self):
        with Pod("--build-code", "customer") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            box = user.box()
            self.assertEqual(
                (box.title, box.text, icon_of(box)), ("Error", "You Zendor maybe Faulty", "red")
            )
            user.answer(box)
            self.assertEqual(user.wait_for_end(), 0)

    def test_ends_at_once_when_closed_in_the_middle_of_a_wait(self):
        with Pod("--no-pod") as pod:
            for _ in range(2):  # the port opens again
                with self.user(com1=pod.device) as user:
                    start = time.monotonic()
                    user.click(BUTTON)
                    user.wait_until_enabled(False)
                    user.press("alt+F4")
                    self.assertEqual(user.wait_for_end(), 0)
                    self.assertLess(time.monotonic() - start, 1.9)  # the wait would take 2 s

    def test_survives_a_line_that_is_torn_out(self):
        with Pod("--fault", "echo-only:254") as pod, self.user(com1=pod.device) as user:
            user.click(BUTTON)
            pod.wait_for(POLL)
            pod.process.kill()
            for _ in range(2 - pod.requests().count(POLL)):  # the other attempt cannot be written
                box = user.box()
                self.assertEqual((box.title, icon_of(box)), ("Unhandled Error", "yellow"))
                self.assertTrue(box.text.endswith("Occured in LL_Serial_SendMessage"), box.text)
                self.assertIn(" If its adapter has been pulled out, plug it in again.\n", box.text)
                user.answer(box)
            self.assertEqual(user.box().text, "You Must Attach The Zendor!")

    def test_is_used_with_the_keyboard_alone(self):
        with Pod("--serial-number", "3") as pod, self.user(com2=pod.device) as user:
            user.wait_until_focused(BUTTON)
            for keys, focus in [
                ("Escape", BUTTON), ("Tab", OPTIONS[0]), ("Down", OPTIONS[1]), ("Tab", BUTTON),
                ("shift+Tab", OPTIONS[1]), ("shift+Tab", BUTTON),
            ]:
                user.press(keys)
                user.wait_until_focused(focus)
            self.assertTrue(user.is_selected(OPTIONS[1]))
            user.press("space")
            self.assertEqual(user.wait_for_result(), "C-3")
            user.wait_until_focused(BUTTON)  # which it had lost while it was disabled
            user.press("ctrl+c")
            wait_for(lambda: self.reader.clipboard() == "C-3" or None, "The copied number")
            user.press("shift+Tab", "Return")  # the default button, from wherever the keyboard is
            pod.wait_for(SERIAL, 2)
            user.wait_until_enabled()
            self.assertEqual(user.wait_for_result(), "C-3")
            self.assertEqual(user.focused(), OPTIONS[1])
            self.assertEqual(len(pod.requests()), 6)

    def test_leaves_the_focus_where_the_user_puts_it_during_a_request(self):
        with Pod(*SLOW, "--serial-number", "5") as pod, self.user(com1=pod.device) as user:
            user.press("Return")
            user.wait_until_enabled(False)
            user.press("Tab")
            user.wait_until_focused(OPTIONS[0])
            user.press("Return")  # a second request does not start inside the first
            self.assertEqual(user.wait_for_result(), "C-5")
            user.wait_until_enabled()
            self.assertEqual(user.focused(), OPTIONS[0])
            twice = [POLL, POLL, BUILD_CODE, BUILD_CODE, SERIAL, SERIAL]
            self.assertEqual(pod.requests(), twice)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
